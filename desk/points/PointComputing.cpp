#include "desk/points/PointComputing.h"

#include "desk/points/PointView.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace metrisk {

namespace {

constexpr auto patience = std::chrono::milliseconds(30);
constexpr std::size_t partSize = 4096;

std::vector<std::size_t> unanswered(const PointSheet& sheet, const PointRules& rules) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < sheet.size(); ++row)
        if (!sheet[row].record.empty() && !answerOf(sheet, &rules, row)) rows.push_back(row);
    return rows;
}

} // namespace

PointComputing::PointComputing(Talk& ui, PointSheet& sheet, std::function<void()> went)
    : sheet_(sheet), went_(std::move(went)), background_(ui) {}

void PointComputing::start(std::shared_ptr<const PointRules> rules) {
    background_.stop();
    rules_ = std::move(rules);
    done_ = wanted_ = 0;
    if (!rules_) return;
    std::vector<std::size_t> rows = unanswered(sheet_, *rules_);
    RowScratch scratch;
    const auto until = std::chrono::steady_clock::now() + patience;
    auto next = rows.begin();
    for (; next != rows.end() && std::chrono::steady_clock::now() < until; ++next)
        sheet_.answer(*next, rules_->answer(sheet_[*next].record, scratch));
    rows.erase(rows.begin(), next);
    wanted_ = rows.size();
    if (!rows.empty()) computePart(std::move(rows));
}

/// The first of the rows, then the others.
void PointComputing::computePart(std::vector<std::size_t> rows) {
    const auto size = static_cast<std::ptrdiff_t>(std::min(rows.size(), partSize));
    std::vector<std::size_t> part(rows.begin(), rows.begin() + size);
    rows.erase(rows.begin(), rows.begin() + size);
    std::vector<std::string> records;
    records.reserve(part.size());
    for (const std::size_t row : part) records.push_back(sheet_[row].record);
    background_.start([this, part = std::move(part), rest = std::move(rows), records = std::move(records),
                       rules = rules_](const std::stop_token& stop) -> Background::Delivery {
        std::vector<PointAnswer> answers;
        RowScratch scratch;
        for (const std::string& record : records) {
            if (stop.stop_requested()) return {};
            answers.push_back(rules->answer(record, scratch));
        }
        return [this, part, rest, answers = std::move(answers)]() mutable {
            for (std::size_t i = 0; i < part.size(); ++i) sheet_.answer(part[i], std::move(answers[i]));
            done_ += part.size();
            if (!rest.empty()) computePart(std::move(rest));
            went_();
        };
    });
}

double PointComputing::progress() const {
    return wanted_ > 0 ? 100.0 * static_cast<double>(done_) / static_cast<double>(wanted_) : 0;
}

void answerAll(PointSheet& sheet, const PointRules& rules) {
    RowScratch scratch;
    for (const std::size_t row : unanswered(sheet, rules))
        sheet.answer(row, rules.answer(sheet[row].record, scratch));
}

} // namespace metrisk
