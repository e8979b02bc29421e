// From the entries of a test to its figures, without a session, a screen or a text.
#pragma once

#include "base/FunctionRef.h"
#include "base/Regional.h"
#include "risk/RatioSearch.h"
#include "risk/TestRisks.h"
#include "risk/exact/ExactRisks.h"

#include <optional>

namespace metrisk {

/// All risks are fractions.
struct TestFigures : TestRisks {
    SubjectBias subject{}; // as fitted
    double kFactor = 0;    // of the measuring parameter
    double stdUncertainty = 0;
    double mteSigma = 0;               // nominal units, with the process errors that count
    std::optional<ExactRisks> exact{}; // of both conventions
    std::optional<Risks> reference{};  // none for a reference case that is none
    std::optional<double> ratio{};     // as searched; see ratioAttained
};

/// What is worth its time; the risks are always computed.
struct Wanted {
    bool exact = false;
    bool reference = false;
    bool ratio = false; // a search that ends because its step became too small leaves none
};

/// Goes on as long as it is answered true.
using Watch = FunctionRef<bool(const SearchPass&)>;

/// The rules of the entries, in their order, then those of the process errors. Questions that a user would be
/// asked are answered by going on. None if all hold.
std::optional<Refusal> validate(const TestEntries& entries);

/// Validates, fits and computes. Never throws but for memory. Of kind NoAnswer where the test limits have
/// crossed or nothing passes them, or where the watch stopped the search of the ratio.
Result<TestFigures> evaluate(const TestEntries& entries, const Wanted& wanted = {});
Result<TestFigures> evaluate(const TestEntries& entries, const Wanted& wanted, Watch watch);

/// The entries of a record: the one place where cells of texts become numbers. Of kind Arithmetic where a
/// cell holds a number that no sum can be made of.
Result<TestEntries> entriesOf(const Analysis& record, const Regional& regional);

} // namespace metrisk
