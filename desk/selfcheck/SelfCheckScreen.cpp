#include "desk/selfcheck/SelfCheckScreen.h"

#include "base/NumberFormat.h"
#include "desk/kit/Session.h"

namespace metrisk {

namespace {

/// Why the verdict is what it is, and what the figure was published in.
std::string whyOf(const CheckedFigure& figure) {
    switch (figure.verdict) {
    case CheckVerdict::Pass: return "As printed: " + figure.source;
    case CheckVerdict::Note: return "As good as its source: " + figure.source;
    case CheckVerdict::Diff: break;
    }
    return "Differs: " + figure.source;
}

} // namespace

SelfCheckScreen::SelfCheckScreen(Session& session) : Worksheet("SelfCheck", "Self-Check", "self-check") {
    const WaitPointer wait(session.ui);
    const std::vector<CheckedFigure> figures = selfCheck(publishedFigures());
    for (const auto& [what, text] : checkHeading(publishedFigures(), session.clock.now(), session.regional))
        Lbl_About.text += what + ": " + text + "\n";
    Lbl_About.text.pop_back();
    Lbl_Summary.text = checkSummary(figures);
    Lbl_Summary.emphasised = true;
    tbl_Figures.headings = {"Result", "Case", "Figure", "Printed", "Computed", "Exact", "Why"};
    tbl_Figures.figureColumns = {3, 4, 5};
    tbl_Figures.markTip = "Differs from the published figure";
    const auto number = [&](const std::optional<double>& value) {
        return value ? GeneralText(*value, session.regional, 12) : "";
    };
    for (const CheckedFigure& each : figures) {
        std::vector<Table::Cell> row;
        for (const std::string& text : {std::string(wordOf(each.verdict)), each.title, each.figure,
                                        each.printed, number(each.computed), number(each.exact), whyOf(each)})
            row.push_back({.text = text, .marked = each.verdict == CheckVerdict::Diff, .locked = true});
        all_.push_back(std::move(row));
        passed_.push_back(each.verdict == CheckVerdict::Pass);
    }
    tbl_Figures.whenEmpty = "Every figure agrees as printed";
    chk_OnlyNotes.clicked = [this](bool on) { chk_OnlyNotes.checked = on; };
    refresh();
    cmd_Close.closes = Way::Ok;
    cmd_Close.isDefault = true;
    cmd_Close.isPrimary = true;
}

void SelfCheckScreen::refresh() {
    tbl_Figures.rows.clear();
    for (std::size_t i = 0; i < all_.size(); ++i)
        if (!chk_OnlyNotes.checked || !passed_[i]) tbl_Figures.rows.push_back(all_[i]);
}

} // namespace metrisk
