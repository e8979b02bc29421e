// The table of test points of a running program: it stays when its screen is left.
#pragma once

#include "base/FileStamp.h"
#include "desk/points/PointSheet.h"
#include "desk/points/PointTemplate.h"

#include <optional>
#include <string>

namespace metrisk {

struct PointDesk {
    PointSheet sheet{};
    std::string path{};               // of its file; empty for one that has none yet
    std::optional<FileStamp> stamp{}; // of that file as it was opened or saved last
    std::string want = "risks,tur";
    double limit = 0.02;                    // of the false accept risk, a fraction
    bool decimalComma = false;              // of the numbers in the cells
    std::optional<PointTemplate> filling{}; // none before the table is first looked at
};

} // namespace metrisk
