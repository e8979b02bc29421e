// What the commands of readings and decisions share: one analysis, its coverage factor and its convention.
#pragma once

#include "cli/Arguments.h"
#include "cli/Output.h"
#include "risk/decision/Coverage.h"
#include "risk/decision/DecisionSentence.h"
#include "risk/decision/GuardedRisks.h"
#include "unattended/AnalysisRun.h"

#include <optional>
#include <string>

namespace metrisk::cli {

struct DecisionOptions {
    std::string file{};
    std::string settings{};
    CoverageChoice coverage{};
    std::optional<Convention> convention{};
    bool json = false;

    /// FILE, --k, --convention, --json and --settings.
    void addTo(const Arguments& command, bool fileRequired = true);
};

/// The analysis opened, and what its entries give to decide by; without a file there is none. Nothing of it
/// is ever written.
class DecisionRun {
  public:
    explicit DecisionRun(const DecisionOptions& options);

    /// None where the file cannot be read or its entries are refused, which has been told.
    const DecisionBasis* basis() const { return basis_ ? &*basis_ : nullptr; }

    /// Tells why there is no figure; the exit status is that of a refusal.
    void refuse(const Refusal& refusal);
    void note(const std::string& text) { run_.ui.note(text); }

    /// What follows belongs to another line of the output, but for what has been told before the first of
    /// them.
    void nextLine();

    /// {"file", "status", "messages"} of the line.
    Json result() const;
    /// Puts JSON or a table, and the messages; a table only of what was computed.
    int finish(const Json& object, const std::string& table) const;
    int status() const { return status_; }
    std::string diagnostics() const { return diagnosticLines(options_.file, run_.ui.messages()); }
    const Analysis& record() const { return run_.record; }

    /// How its lengths are written.
    DecisionTexts texts() const;
    /// One limit with its unit, "-" where there is none; and both, as in "at most 10.5 V".
    std::string limitCell(double deviation, bool upper) const;
    std::string limitsCell(const Interval& deviations) const;

  private:
    const DecisionOptions& options_;
    Workplace workplace_;
    AnalysisRun run_;
    std::optional<DecisionBasis> basis_;
    int status_ = unreadable; // of all lines
    int lineStatus_ = unreadable;
    std::optional<std::size_t> common_{}; // messages before the first line
    std::size_t lineStart_ = 0;
};

/// A limit of the nominal scale, null where there is none.
Json limitJson(const DecisionBasis& basis, double deviation);

/// CoverageFactor, ExpandedUncertainty, ToleranceToUncertainty, MTE_Sigma and DegFreedom (null: infinite).
void putUncertainty(Json& object, const DecisionBasis& basis);
/// Both conventions and the rest, by the names of compute; null without risks.
void putRisks(Json& object, const std::optional<GuardedRisks>& risks);

/// Rows of both conventions of a false accept risk, and of the false reject risk.
std::string riskRows(const GuardedRisks& risks);

} // namespace metrisk::cli
