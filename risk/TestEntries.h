// What a test is made of, as numbers: the input of evaluate.
#pragma once

#include "uncertainty/Budget.h"

#include <optional>

namespace metrisk {

enum class Sides { Two, Upper, Lower };
enum class Convention { Consumer, Producer }; // 0 and 1 of FalseAcceptOption

/// Nominal units; offsets never negative; the absent side's figures are not read. A limit is no sum of mode
/// and offset: a file holds all three, and the fit compares limits by their last bit.
struct SubjectEntry {
    double mode = 0;
    double upperOffset = 0;
    double lowerOffset = 0;
    double upperLimit = 0;
    double lowerLimit = 0;
    double pctInTol = 0; // percent, as entered: a fraction would cost its last bit
    Sides sides = Sides::Two;
    bool physicalLimitRequired = false;    // single-sided tolerances only
    std::optional<double> physicalLimit{}; // none is refused where it is required
};

struct MeasuringEntry {
    double offset = 0;          // tolerance limit, or expanded uncertainty; nominal units
    double pctInTol = 0;        // percent; or the confidence of that uncertainty
    double degFreedom = 0;      // 0 means infinite
    bool byUncertainty = false; // which of the two: only a confidence may be 100 %
};

/// Test limits as multiples of the tolerance offsets.
struct Guardband {
    double upper = 1;
    double lower = 1;
};

/// The reference case; percent.
struct Reference {
    double ratio = 4;
    double subjectPct = 72;
    double measuringPct = 85;
};

/// No text and nothing of a screen: a row of a table is one of these.
struct TestEntries {
    SubjectEntry subject{};
    MeasuringEntry measuring{};
    std::optional<Budget> process{}; // none where process errors do not count
    Guardband guardband{};
    Reference reference{};
    Convention convention = Convention::Consumer;
    bool ratioOnFalseAccept = true;         // what the equivalent ratio is searched for
    bool measuringCurveWithProcess = false; // a test with it is never taken for its own reference
    bool excludedGuardband = false;         // nor one that holds multipliers other than 1 which do not count
};

} // namespace metrisk
