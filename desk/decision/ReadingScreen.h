// A reading and the decision on it, screen Reading.
#pragma once

#include "desk/compute/ObservingUnits.h"
#include "desk/decision/ReadingHistory.h"
#include "desk/kit/Worksheet.h"

#include <functional>
#include <optional>
#include <vector>

namespace metrisk {

struct Session;

/// Judges by the present entries and changes none of them. The rule is kept in the settings, readings
/// nowhere: their history ends with the program.
class ReadingScreen final : public Worksheet {
  public:
    Label Lbl_Reading{*this, "Lbl_Reading", "Measured &Value"};
    TextBox txt_Reading{*this, "txt_Reading", "Corrected reading of the measuring parameter"};
    Choice cbo_Units{*this, "cbo_Units", "Units of the reading"};
    Label Lbl_Coverage{*this, "Lbl_Coverage", "Coverage &Factor"};
    TextBox txt_Coverage{*this, "txt_Coverage", "k of U = k u as in 2 or 95%; empty: that of 95.45 %"};
    CheckBox chk_Prior{*this, "chk_Prior", "With the popu&lation as prior",
                       "The % in-tolerance of the subject parameter counts as knowledge before the reading"};
    Label Lbl_Rule{*this, "Lbl_Rule", "Decision &Rule"};
    Choice cbo_Rule{*this, "cbo_Rule", "By what the reading passes or fails"};
    Label Lbl_RuleValue{*this, "Lbl_RuleValue"};
    TextBox txt_RuleValue{*this, "txt_RuleValue", "Parameter of the rule"};
    Label Lbl_Outcomes{*this, "Lbl_Outcomes", "&Outcomes"};
    Choice cbo_Outcomes{*this, "cbo_Outcomes", "Verdicts that the rule knows"};
    Label Lbl_Reject{*this, "Lbl_Reject", "Re&jection at"};
    TextBox txt_Reject{*this, "txt_Reject", "Multiple of U beyond the limits; empty: that of acceptance"};

    Label Lbl_Verdict{*this, "Lbl_Verdict"};
    Label Lbl_Why{*this, "Lbl_Why"};
    Label Lbl_Conforming{*this, "Lbl_Conforming", "Probability In-Tolerance"};
    TextBox box_Conforming{*this, "box_Conforming", "Of a unit that reads so"};
    Label Lbl_OfReading{*this, "Lbl_OfReading", "of a unit that reads so"};
    Label Lbl_Nonconforming{*this, "Lbl_Nonconforming", "Probability Out-of-Tolerance"};
    TextBox box_Nonconforming{*this, "box_Nonconforming", "Of a unit that reads so"};
    Label Lbl_OfVerdict{*this, "Lbl_OfVerdict", "specific risk of this reading"};
    Label Lbl_FalseAccept{*this, "Lbl_FalseAccept", "False Accept Risk"};
    TextBox box_FalseAccept{*this, "box_FalseAccept",
                            "Of the units that this rule accepts, by exact integration"};
    Label Lbl_OfAccepted{*this, "Lbl_OfAccepted", "of all accepted units"};
    Label Lbl_Tolerance{*this, "Lbl_Tolerance", "Tolerance"};
    TextBox box_Tolerance{*this, "box_Tolerance", "Limits of the subject parameter", Holds::Words};
    Label Lbl_Acceptance{*this, "Lbl_Acceptance", "Acceptance Limits"};
    TextBox box_Acceptance{*this, "box_Acceptance", "Limits within which the rule accepts, rounded inwards",
                           Holds::Words};
    Label Lbl_Uncertainty{*this, "Lbl_Uncertainty", "Uncertainty"};
    TextBox box_Uncertainty{*this, "box_Uncertainty", "u and U = k u of the measurement", Holds::Words};
    PictureArea pic_Strip{*this, "pic_Strip", "No reading", "The reading among its limits"};
    Label Lbl_Sentence{*this, "Lbl_Sentence"};
    Table tbl_History{*this, "tbl_History", "Readings since the program was started, newest first"};
    Label Lbl_Foot{*this, "Lbl_Foot", "Nothing of this screen is stored in the analysis."};
    PushButton cmd_CopySentence{*this, "cmd_CopySentence", "Copy &Sentence",
                                "Copy the sentence for a certificate"};
    PushButton cmd_CopyHistory{*this, "cmd_CopyHistory", "Copy &Table", "Copy the readings since the start"};
    PushButton cmd_Close{*this, "cmd_Close", "Clos&e", "Nothing of this screen is stored in the analysis"};

    /// `history` is that of the program; null for one of the screen's own.
    explicit ReadingScreen(Session& session, ReadingHistory* history = nullptr);

    /// Of each reading that has been entered and judged.
    std::function<void(const DecisionRequest&)> decided;

    void begin() override;
    void refresh() override;

  private:
    Session& session_;
    ReadingHistory own_{};
    ReadingHistory& history_;
    DecisionRequest request_; // its reading is that of typed_
    std::string typed_;
    std::vector<OfferedUnit> units_;
    std::optional<Judge> judge_;
    std::string refusal_; // why there is none
    std::optional<Judgement> judgement_;

    void bindEntries();
    void bindRule();
    void setRule(const DecisionRequest& request);
    void changeRule(const DecisionRequest& request);
    void judge();
    void enter();
    void clear();
    void showRule();
    void showVerdict();
    void showHistory();
    double unitFactor() const;
};

} // namespace metrisk
