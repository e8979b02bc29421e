#include "desk/selfcheck/SelfCheckScreen.h"

#include "base/NumberFormat.h"
#include "desk/kit/Session.h"

namespace metrisk {

SelfCheckScreen::SelfCheckScreen(Session& session) : Worksheet("SelfCheck", "Self-Check", "self-check") {
    const WaitPointer wait(session.ui);
    const std::vector<CheckedFigure> figures = selfCheck(publishedFigures());
    for (const auto& [what, text] : checkHeading(publishedFigures(), session.clock.now(), session.regional))
        Lbl_About.text += what + ": " + text + "\n";
    Lbl_About.text.pop_back();
    Lbl_Summary.text = checkSummary(figures);
    Lbl_Summary.emphasised = true;
    tbl_Figures.headings = {"Case", "Figure", "Printed", "Computed", "Exact", "Result", "Source"};
    tbl_Figures.figureColumns = {2, 3, 4};
    tbl_Figures.markTip = "Differs from the published figure";
    const auto number = [&](const std::optional<double>& value) {
        return value ? GeneralText(*value, session.regional, 12) : "";
    };
    for (const CheckedFigure& each : figures) {
        std::vector<Table::Cell> row;
        for (const std::string& text : {each.name, each.figure, each.printed, number(each.computed),
                                        number(each.exact), std::string(wordOf(each.verdict)), each.source})
            row.push_back({.text = text, .marked = each.verdict == CheckVerdict::Diff, .locked = true});
        tbl_Figures.rows.push_back(std::move(row));
    }
    cmd_Close.closes = Way::Ok;
    cmd_Close.isDefault = true;
    cmd_Close.isPrimary = true;
}

} // namespace metrisk
