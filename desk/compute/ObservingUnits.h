// The units in which the observing unit's tolerance can be stated.
#pragma once

#include <string>
#include <vector>

namespace metrisk {

struct Analysis;
struct Session;

struct OfferedUnit {
    std::string name;
    double factor; // units per nominal unit, above 0
};

/// Those of the record, with its own factors, and of its measurement area, as far as its units database can
/// be read; "ppm" of a mode of 0 is none. A unit of the record that no one knows has the factor of the
/// measuring tolerance, as it always had. Nothing is told.
std::vector<OfferedUnit> observingUnits(const Session& session);

/// The factor of Obs_Units among them.
double observingFactor(const Session& session);

} // namespace metrisk
