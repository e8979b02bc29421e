#include "risk/sweeps/RiskMap.h"

#include "base/ParallelFor.h"
#include "record/SubjectSide.h"
#include "risk/RatioSearch.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

/// The values of one quantity on a map: one for each point of its axis, or a single one.
std::vector<double> valuesOf(MapQuantity quantity, const MapRequest& request) {
    std::vector<double> values;
    const auto along = [&](const MapAxis& axis, std::size_t points) {
        for (std::size_t i = 0; i < points; ++i) values.push_back(axis.at(i, points));
    };
    if (request.x.quantity == quantity)
        along(request.x, request.columns);
    else if (request.y.quantity == quantity)
        along(request.y, request.rows);
    else
        values.push_back(request.others[quantity]);
    return values;
}

} // namespace

bool isMapValue(MapQuantity quantity, double value) {
    const bool percent = quantity == MapQuantity::SubjectPct || quantity == MapQuantity::MeasuringPct;
    return std::isfinite(value) && value > 0 && (!percent || value < 100);
}

double MapAxis::at(std::size_t i, std::size_t points) const {
    if (i + 1 == points) return to;
    return from + static_cast<double>(i) * (to - from) / static_cast<double>(points - 1);
}

RiskMap::RiskMap(const Analysis& r, const Regional& regional)
    : parts_(r, regional), tolerance_(ratioTolerance(r)), includeProcess_(r.IncludeUncertainty),
      lopsided_(r.IncludeGuardbands && r.OptTwoSided && r.GB_LowerMult != r.GB_UpperMult) {
    present_[MapQuantity::Ratio] = tolerance_ / r.MTE_Offset;
    present_[MapQuantity::SubjectPct] = r.SU_PctInTol;
    present_[MapQuantity::MeasuringPct] = r.MTE_PctInTol;
    present_[MapQuantity::Multiplier] = r.IncludeGuardbands ? r.*presentSide(r).multiplier : 1;
}

double RiskMap::mteSigma(double ratio, double coverageFactor) const {
    return parts_.mteSigmaOf(tolerance_ / ratio, coverageFactor, includeProcess_);
}

std::optional<Risks> RiskMap::at(const MapPlace& place) const {
    const auto subject = parts_.subjectAt(place[MapQuantity::SubjectPct]);
    if (!subject) return std::nullopt;
    const double k = parts_.coverageFactorAt(place[MapQuantity::MeasuringPct]);
    const double multiplier = place[MapQuantity::Multiplier];
    return parts_.exactRisks(*subject, mteSigma(place[MapQuantity::Ratio], k), multiplier, multiplier);
}

/// A fit or a coverage factor costs more than a risk: each is made once for the values of its quantity.
RiskGrid RiskMap::grid(const MapRequest& request, const std::stop_token& stop) const {
    const auto ratios = valuesOf(MapQuantity::Ratio, request);
    const auto multipliers = valuesOf(MapQuantity::Multiplier, request);
    const auto subjectPcts = valuesOf(MapQuantity::SubjectPct, request);
    const auto measuringPcts = valuesOf(MapQuantity::MeasuringPct, request);
    std::vector<std::optional<SubjectBias>> subjects(subjectPcts.size());
    std::vector<double> factors(measuringPcts.size());
    const bool fitted =
        parallelFor(
            subjects.size(), 1,
            [&](std::size_t i, std::size_t) { subjects[i] = parts_.subjectAt(subjectPcts[i]); }, stop) &&
        parallelFor(
            factors.size(), 1,
            [&](std::size_t i, std::size_t) { factors[i] = parts_.coverageFactorAt(measuringPcts[i]); },
            stop);
    if (!fitted) return {};

    const auto indexOf = [&](MapQuantity quantity, std::size_t column, std::size_t row) {
        return request.x.quantity == quantity ? column : request.y.quantity == quantity ? row : 0;
    };
    RiskGrid grid{request.columns, request.rows};
    grid.falseAccept.assign(request.columns * request.rows, none);
    grid.falseReject = grid.falseAccept;
    const auto computeRow = [&](std::size_t row, std::size_t) {
        for (std::size_t column = 0; column < request.columns; ++column) {
            const auto& subject = subjects[indexOf(MapQuantity::SubjectPct, column, row)];
            if (!subject) continue;
            const double sigma = mteSigma(ratios[indexOf(MapQuantity::Ratio, column, row)],
                                          factors[indexOf(MapQuantity::MeasuringPct, column, row)]);
            const double multiplier = multipliers[indexOf(MapQuantity::Multiplier, column, row)];
            const auto risks = parts_.exactRisks(*subject, sigma, multiplier, multiplier);
            if (!risks) continue;
            grid.falseAccept[row * request.columns + column] = risks->falseAccept;
            grid.falseReject[row * request.columns + column] = risks->falseReject;
        }
    };
    if (!parallelFor(request.rows, 1, computeRow, stop)) return {};
    return grid;
}

} // namespace metrisk
