#include "rows/NamedEntries.h"

#include "base/Text.h"

#include <cmath>
#include <limits>

namespace metrisk {

namespace {

constexpr std::size_t longestCell = std::size_t{64} * 1024;
constexpr double infinite = std::numeric_limits<double>::infinity();

[[noreturn]] void refuseCell(const EntryInfo& info, std::string_view text, const char* what,
                             NumberMarks marks) {
    throw RowFault{true, "column " + std::string(info.name) + ": " + noNumberText(text, what, marks)};
}

/// 0 stands for infinitely many.
double degreesOfFreedom(double number) {
    if (number < 0) throw RowFault{true, "column " + std::string(infoOf(Entry::MteDof).name) + ": below 0"};
    return std::isinf(number) ? 0 : number;
}

double numberOf(const EntryInfo& info, std::string_view text, NumberMarks marks) {
    const bool freedom = info.entry == Entry::MteDof;
    if (freedom && isInfinite(text)) return degreesOfFreedom(text.starts_with('-') ? -infinite : infinite);
    const auto number = plainNumberOf(text, marks);
    if (!number) refuseCell(info, text, "number", marks);
    return freedom ? degreesOfFreedom(*number) : *number;
}

} // namespace

void NamedEntries::read(Entry entry, std::string_view cell, std::string_view columnUnit, NumberMarks marks) {
    const std::string_view text = trimmedCell(cell);
    if (text.empty()) return;
    const EntryInfo& info = infoOf(entry);
    if (text.size() > longestCell)
        throw RowFault{true, "column " + std::string(info.name) + ": longer than 64 KiB"};
    NamedEntry value{.text = text};
    const auto take = [&](std::optional<double> number, const char* what) {
        if (!number) refuseCell(info, text, what, marks);
        value.number = *number;
    };
    switch (info.kind) {
    case EntryKind::Text:
    case EntryKind::Word: break;
    case EntryKind::Percent: take(percentCellOf(text, marks), "percentage"); break;
    case EntryKind::Ratio: take(ratioCellOf(text, marks), "ratio"); break;
    case EntryKind::Number: value.number = numberOf(info, text, marks); break;
    case EntryKind::Limit:
        if (isInfinite(text)) {
            value.number = infinite;
            break;
        }
        [[fallthrough]];
    case EntryKind::Length:
    case EntryKind::Offset: {
        const auto read = quantityOf(text, marks);
        if (!read) refuseCell(info, text, "number", marks);
        value.number = read->number;
        value.ownUnit = !read->unit.empty();
        value.unit = value.ownUnit ? read->unit : columnUnit;
    }
    }
    values_[static_cast<std::size_t>(entry)] = value;
    named_ |= std::uint64_t{1} << static_cast<unsigned>(entry);
}

void NamedEntries::put(Entry entry, double number) {
    if (std::isnan(number)) return;
    const EntryInfo& info = infoOf(entry);
    if (info.kind == EntryKind::Text || info.kind == EntryKind::Word)
        throw RowFault{true, "column " + std::string(info.name) + ": a number, wanted a text"};
    NamedEntry value{.number = number};
    if (entry == Entry::MteDof) {
        value.number = degreesOfFreedom(number);
    } else if (std::isinf(number)) {
        if (info.kind == EntryKind::Limit)
            value.number = infinite;
        else
            throw RowFault{true, "column " + std::string(info.name) + ": infinite"};
    }
    values_[static_cast<std::size_t>(entry)] = value;
    named_ |= std::uint64_t{1} << static_cast<unsigned>(entry);
}

} // namespace metrisk
