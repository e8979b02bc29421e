// "Report Options", screen PrintOpt: who reports, who signs, and what a report says of them.
#pragma once

#include "desk/kit/Worksheet.h"
#include "record/WorksheetGroups.h"

namespace metrisk {

struct Session;

/// Works on the report fields of the record. They stay for this analysis; only as defaults do they reach the
/// settings.
class ReportOptionsScreen final : public Worksheet {
  public:
    static constexpr std::size_t longest = 60; // characters of a box, as a file holds them

    TextBox txt_Organization{*this, "txt_Organization", "Stands at the head of a report", Holds::Words};
    CheckBox chk_Organization{*this, "chk_Organization", "Include", "Print the organization"};
    TextBox txt_Department{*this, "txt_Department", "Stands behind the submitter", Holds::Words};
    CheckBox chk_Department{*this, "chk_Department", "Include", "Print the department"};
    TextBox txt_ApprovingDept{*this, "txt_ApprovingDept", "Stands behind the approver", Holds::Words};
    CheckBox chk_ApprovingDept{*this, "chk_ApprovingDept", "Include", "Print the approving department"};
    TextBox txt_Submitter{*this, "txt_Submitter", "Who submits the report", Holds::Words};
    CheckBox Chk_IncludeSub{*this, "Chk_IncludeSub", "Include", "Print a line for the submitter to sign"};
    TextBox txt_Approver{*this, "txt_Approver", "Who approves the report", Holds::Words};
    CheckBox Chk_IncludeApp{*this, "Chk_IncludeApp", "Include", "Print a line for the approver to sign"};
    CheckBox chk_FileName{*this, "chk_FileName", "File Name", "Print the name of the analysis file"};
    Memo txt_Remarks{*this, "txt_Remarks", "Remarks on this analysis; they are not saved with it"};
    CheckBox chk_Remarks{*this, "chk_Remarks", "Include", "Print the remarks"};
    RadioButton Opt_TabDelimited{*this, "Opt_TabDelimited", "&Tab Delimited", "Summaries with tabs", 0};
    RadioButton Opt_CommaDelimited{*this, "Opt_CommaDelimited", "&Comma Delimited", "Summaries with commas",
                                   0};
    PushButton opt_Defaults_0{*this, "opt_Defaults_0", " &Apply Current Defaults",
                              "Take texts and choices from the settings"};
    PushButton opt_Defaults_1{*this, "opt_Defaults_1", " &Set Current Entries as Defaults",
                              "Put texts and choices into the settings"};
    PushButton cmd_OK{*this, "cmd_OK", "&OK", "Keep these options for this analysis"};
    PushButton cmd_Cancel{*this, "cmd_Cancel", "Cancel", "Leave the options as they were"};

    explicit ReportOptionsScreen(Session& session);

    void refresh() override;

    /// It was left for the print dialog.
    bool printWanted() const { return printWanted_; }

  protected:
    bool mayClose(Way way) override;

  private:
    Session& session_;
    const ReportFields loaded_;
    bool printWanted_ = false;

    void applyDefaults();
    void setDefaults();
};

} // namespace metrisk
