// Guardband strategies side by side, screen Strategies.
#pragma once

#include "desk/kit/Background.h"
#include "desk/kit/ScreenEntry.h"
#include "desk/kit/Worksheet.h"
#include "risk/decision/StrategyTable.h"
#include "risk/decision/WorstCase.h"

#include <optional>
#include <string>
#include <vector>

namespace metrisk {

struct Session;

/// Computed from the present entries, beside the screens. A row changes the analysis only where the user
/// sends its multipliers to the guardband worksheet, which types them.
class StrategyScreen final : public Worksheet {
  public:
    Label Lbl_Basis{*this, "Lbl_Basis"};
    Label Lbl_TargetAccept{*this, "Lbl_TargetAccept", "False &Accept Target, %"};
    TextBox txt_TargetAccept{*this, "txt_TargetAccept", "False accept risk that a guardband is to give"};
    Label Lbl_TargetReject{*this, "Lbl_TargetReject", "False &Reject Target, %"};
    TextBox txt_TargetReject{*this, "txt_TargetReject",
                             "False reject risk that a guardband is to give; may be empty"};
    Label Lbl_TargetWorst{*this, "Lbl_TargetWorst", "&Worst Case Target, %"};
    TextBox txt_TargetWorst{*this, "txt_TargetWorst",
                            "Worst joint false accept risk over an unknown % in-tolerance"};
    Table tbl_Strategies{*this, "tbl_Strategies",
                         "Double click to send its multipliers to the guardband worksheet"};
    Label Lbl_Worst{*this, "Lbl_Worst"};
    PushButton cmd_Copy{*this, "cmd_Copy", "&Copy Table", "Copy the table with tabs between its cells"};
    PushButton cmd_Save{*this, "cmd_Save", "&Save...", "Save the figures in all digits, with commas between"};
    PushButton cmd_Send{*this, "cmd_Send", "To &Guardband Worksheet",
                        "Type the multipliers of the chosen row there"};
    PushButton cmd_Close{*this, "cmd_Close", "Clos&e", "Leave the analysis as it is"};

    explicit StrategyScreen(Session& session);

    void refresh() override;
    bool isComputing() const { return background_.isBusy(); }

  protected:
    bool mayClose(Way way) override;

  private:
    struct Figures {
        std::vector<StrategyLine> lines{};
        std::optional<WorstCase> joint{}, conditional{};
    };

    Session& session_;
    Result<DecisionBasis> basis_;
    StrategyTargets targets_{};
    Figures figures_{};
    Background background_;

    void bindTarget(TextBox& box, std::optional<double> (*read)(const StrategyTargets&),
                    void (*write)(StrategyTargets&, std::optional<double>), bool mayBeEmpty);
    void compute();
    const StrategyLine* chosen() const;
    void send();
    void save();
    void showTable();
    void showWorst();
};

} // namespace metrisk
