#include "desk/points/PointRecovery.h"

#include "desk/files/CopyQuestion.h"
#include "desk/points/PointDesk.h"
#include "desk/points/PointDocument.h"

#include <functional>
#include <stdexcept>

namespace metrisk {

PointRecovery::PointRecovery(Talk& ui, PointDesk& desk, std::filesystem::path folder)
    : ui_(ui), desk_(desk), folder_(folder), copy_(std::move(folder)) {}

void PointRecovery::update() {
    if (!desk_.sheet.changed()) return remove();
    const std::string text = desk_.sheet.text();
    const std::size_t sign = std::hash<std::string>{}(desk_.path + '\n' + text);
    if (!copy_.path().empty() && sign == written_) return;
    if (copy_.write({desk_.path, desk_.stamp, text})) written_ = sign;
}

bool PointRecovery::open(const AbandonedCopy& copy) {
    try {
        desk_.sheet = PointSheet::ofText(copy.work.content);
    } catch (const std::runtime_error&) {
        return false;
    }
    desk_.sheet.markChanged();
    desk_.path = copy.work.name;
    desk_.stamp = copy.work.stamp;
    return true;
}

bool PointRecovery::offer() {
    for (const AbandonedCopy& copy : abandonedCopies(folder_)) {
        const Answer answer = askAboutCopy(ui_, copy, nameOfTable(copy.work.name));
        std::error_code ignored;
        if (answer == Answer::No) std::filesystem::remove(copy.path, ignored);
        if (answer != Answer::Yes || !open(copy)) continue;
        update(); // this program's own, before the other is given up
        if (!copy_.path().empty()) std::filesystem::remove(copy.path, ignored);
        return true;
    }
    return false;
}

} // namespace metrisk
