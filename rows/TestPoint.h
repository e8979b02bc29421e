// A test point: the entries of a test, what they are made of, and the rules by which entries are put into it.
#pragma once

#include "base/Regional.h"
#include "risk/TestEntries.h"
#include "rows/NamedEntries.h"

#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

struct Analysis;
class UnitFactors;

/// Fixed part in nominal units, and percent of the size of the nominal.
struct OffsetPart {
    double fixed = 0;
    double pct = 0;
};

/// The text lives as long as the template, or the row.
struct ToleranceUnit {
    std::string_view name{};
    double factor = 1; // tolerance units per nominal unit

    bool isPpm() const;
};

/// What makes multipliers of k-factors, in nominal units.
struct KBasis {
    double sigma = 0; // of the measuring parameter with the process; NaN where there is none
    double upperOffset = 0, lowerOffset = 0;
    bool operator==(const KBasis&) const = default;
};

/// What a record holds of a test, as numbers. A new one is a new analysis.
struct TestPoint {
    TestEntries entries{};
    OffsetPart upper{}, lower{}, measuring{};
    double stdUncertainty = 0; // of the measuring parameter, where that was entered
    double kUpper = 0, kLower = 0;
    bool kUpperTyped = false, kLowerTyped = false; // they decide over their multipliers
    KBasis kBasis{};                               // of the multipliers, where a k was typed
    bool symmetricMultipliers = false, symmetricTolerances = false;
    bool includeGuardbands = false;
    ToleranceUnit subjectUnit{}, measuringUnit{}; // in which tolerances are entered and shown
    std::string_view area{}, unit{};              // live as long as the template, or the row
    std::string_view nominalUnit{};               // in which lengths of this row are
    std::optional<double> reading{};
    std::string_view rule{};
    std::optional<double> passed{}, tested{};

    /// The mean offset when two-sided, else that of the existing side.
    double halfWidth() const;
    Guardband multipliers{}; // also where guardbands are not included
};

/// The texts of the point live as long as the record. Raises RowFault where a cell of its process errors
/// allows no sum.
TestPoint testPointOf(const Analysis& record, const Regional& regional);

/// What counts of passed and tested items stand for.
enum class CountsAs { Estimate, Lower, Median, Observed };
std::optional<CountsAs> countsAsNamed(std::string_view word);

/// What becomes of the parts of a form beside the one that is named: a row replaces the form, the boxes of an
/// analysis stay as they are.
enum class Unnamed { Replaced, Kept };

/// Puts what a row names into a point, in the order of the entries, each by the rule of its box. Messages of
/// what was decided on the way are added to `notes`, one a line end. Raises RowFault.
void putEntries(TestPoint& point, const NamedEntries& named, const UnitFactors& units, CountsAs countsAs,
                std::string& notes, Unnamed unnamed = Unnamed::Replaced);

/// Multipliers, k-factors or limits of acceptance.
bool namesGuardband(const NamedEntries& named);

/// "TITLE: TEXT" with line breaks as blanks.
std::string toldText(std::string_view title, std::string_view text);
void addNote(std::string& notes, std::string_view note);

} // namespace metrisk
