#include "desk/points/PointRecovery.h"

#include "desk/files/CopyQuestion.h"
#include "desk/points/PointDocument.h"

#include <stdexcept>

namespace metrisk {

PointRecovery::PointRecovery(Talk& ui, PointDesk& desk, std::filesystem::path folder)
    : ui_(ui), desk_(desk), folder_(folder), copy_(std::move(folder)) {}

void PointRecovery::update() {
    if (!desk_.sheet.changed()) return remove();
    if (!isHeld() && copy_.write({desk_.path, desk_.stamp, desk_.sheet.text()}))
        written_ = desk_.sheet.state();
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
    return offerCopies(
        ui_, folder_, [](const std::string& path) { return nameOfTable(path); },
        [this](const AbandonedCopy& copy) { return open(copy); },
        [this] {
            update();
            return isHeld();
        });
}

} // namespace metrisk
