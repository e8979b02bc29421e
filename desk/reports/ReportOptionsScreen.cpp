#include "desk/reports/ReportOptionsScreen.h"

#include "base/Text.h"
#include "desk/files/ClearAnalysis.h"
#include "desk/files/Notes.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "persistence/SettingKeys.h"

namespace metrisk {

ReportOptionsScreen::ReportOptionsScreen(Session& session)
    : Worksheet("PrintOpt", "Report Options", "reports"), session_(session), loaded_(session.record) {
    ReportFields& fields = session.record;
    const auto bindText = [](TextBox& box, std::string& field) {
        box.left = [&field](const std::string& text) -> FieldResult {
            field = withoutQuotes(std::string(firstCharacters(text, longest)));
            return {false, field};
        };
    };
    bindText(txt_Organization, fields.Organization);
    bindText(txt_Department, fields.Department);
    bindText(txt_ApprovingDept, fields.ApprovingDepartment);
    bindText(txt_Submitter, fields.Submitter);
    bindText(txt_Approver, fields.Approver);
    const auto bindFlag = [](CheckBox& box, bool& flag) { box.clicked = [&flag](bool on) { flag = on; }; };
    bindFlag(chk_Organization, fields.IncludeOrganization);
    bindFlag(chk_Department, fields.IncludeDepartment);
    bindFlag(chk_ApprovingDept, fields.IncludeApprovingDepartment);
    bindFlag(Chk_IncludeSub, fields.IncludeSubmitter);
    bindFlag(Chk_IncludeApp, fields.IncludeApprover);
    bindFlag(chk_FileName, fields.IncludeFileName);
    bindFlag(chk_Remarks, fields.IncludeRemarks);
    txt_Remarks.edited = [&fields](const std::string& text) { fields.Remarks = text; };
    Opt_TabDelimited.clicked = [&fields](bool) { fields.Delimiter = "Tab"; };
    Opt_CommaDelimited.clicked = [&fields](bool) { fields.Delimiter = "Comma"; };
    opt_Defaults_0.clicked = [this](bool) { applyDefaults(); };
    opt_Defaults_1.clicked = [this](bool) { setDefaults(); };
    cmd_OK.closes = Way::Ok;
    cmd_OK.isDefault = true;
    cmd_OK.isPrimary = true;
    cmd_Cancel.closes = Way::Cancel;
    menus = {
        {.control = "mnu_Cancel", .caption = "&Cancel", .run = [this] { close(Way::Cancel); }},
        {.control = "mnu_Print",
         .caption = "&Print / Preview",
         .run =
             [this] {
                 printWanted_ = true;
                 close(Way::Ok);
             }},
        notesItem(session_),
    };
    refresh();
}

void ReportOptionsScreen::refresh() {
    const ReportFields& fields = session_.record;
    txt_Organization.text = fields.Organization;
    txt_Department.text = fields.Department;
    txt_ApprovingDept.text = fields.ApprovingDepartment;
    txt_Submitter.text = fields.Submitter;
    txt_Approver.text = fields.Approver;
    chk_Organization.checked = fields.IncludeOrganization;
    chk_Department.checked = fields.IncludeDepartment;
    chk_ApprovingDept.checked = fields.IncludeApprovingDepartment;
    Chk_IncludeSub.checked = fields.IncludeSubmitter;
    Chk_IncludeApp.checked = fields.IncludeApprover;
    chk_FileName.checked = fields.IncludeFileName;
    chk_Remarks.checked = fields.IncludeRemarks;
    txt_Remarks.text = fields.Remarks;
    Opt_TabDelimited.checked = fields.Delimiter == "Tab";
    Opt_CommaDelimited.checked = fields.Delimiter != "Tab";
}

void ReportOptionsScreen::applyDefaults() {
    readReportFields(session_.settings, session_.record);
}

void ReportOptionsScreen::setDefaults() {
    const ReportFields& fields = session_.record;
    std::vector<SettingValue> values;
    const auto add = [&](const TextSetting& setting, const std::string& text) {
        values.push_back({std::string(setting.section), std::string(setting.key), text});
    };
    for (const ReportText& text : reportSettings::texts) add(text.setting, fields.*text.field);
    for (const ReportChoice& choice : reportSettings::choices)
        add(choice.setting, fields.*choice.field ? "Yes" : "No");
    add(reportSettings::delimiter, fields.Delimiter);
    session_.settings.write(values);
}

bool ReportOptionsScreen::mayClose(Way way) {
    ReportFields& fields = session_.record;
    if (fields == loaded_) return true;
    if (way == Way::Cancel) {
        switch (ask(session_.ui, retainChanges)) {
        case Answer::Cancel: return false;
        case Answer::No: fields = loaded_; return true;
        default: break;
        }
    }
    ReportFields saved = fields;
    saved.Remarks = loaded_.Remarks; // not in the file
    if (!(saved == loaded_)) session_.record.FileChanged = true;
    return true;
}

} // namespace metrisk
