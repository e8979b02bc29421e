// The table of test points of a running program: it stays when its screen is left.
#pragma once

#include "desk/points/PointSheet.h"
#include "record/Analysis.h"

#include <optional>
#include <string>

namespace metrisk {

/// What fills the entries that a row does not name.
enum class PointTemplate { NewAnalysis, PresentAnalysis, File };

struct PointDesk {
    PointSheet sheet{};
    std::string path{}; // of its file; empty for one that has none yet
    std::string want = "risks,tur";
    double limit = 0.02;       // of the false accept risk, a fraction
    bool decimalComma = false; // of the numbers in the cells
    std::optional<PointTemplate> from{};
    std::optional<Analysis> file{}; // the template of that kind
    std::string fileName{};
};

} // namespace metrisk
