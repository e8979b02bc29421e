// The analysis that fills the entries a row of a table does not name.
#pragma once

#include "record/Analysis.h"

#include <optional>
#include <string>
#include <vector>

namespace metrisk {

struct PointTemplate {
    enum class From { NewAnalysis, PresentAnalysis, Kept };

    From from = From::NewAnalysis;
    std::optional<Analysis> kept{}; // of a file, or the one that was the present one
    std::string keptName{};

    Analysis analysis(const Analysis& present) const;
    void keep(Analysis analysis, std::string name);
    /// Before another analysis takes the place of the present one, so that the figures of the rows stay.
    void keepPresent(const Analysis& present);

    /// As they are offered, by From.
    std::vector<std::string> names() const;
    std::string name() const { return names()[static_cast<std::size_t>(from)]; }
};

} // namespace metrisk
