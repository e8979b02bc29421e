#include "desk/sweeps/GuardPlot.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/links/RunMenu.h"
#include "record/ToleranceUnits.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr int firstPoints = 11;
constexpr Message illegalPercent{"Percent in-tolerance must be less than 100%.", "Illegal Input"};
constexpr Message notPrinted{"The graph could not be printed.", "Print Graph"};

/// Of the picture's width the part between the axes, as charts have it.
constexpr double axisShare = 1 / 1.22;

} // namespace

GuardPlot::GuardPlot(Session& session, Swept swept)
    : Worksheet("GuardPlot", "", "risk-plots"), session_(session), swept_(swept),
      includeGuardbands_(session.record.IncludeGuardbands),
      includeProcess_(session.record.IncludeUncertainty), background_(session.ui) {
    bindRange();
    bindOptions();
    bindMenus();
    openStored();
    refresh();
}

GuardPlot::GuardPlot(Session& session, const Baseline& baseline) : GuardPlot(session, Swept::BaselineRatio) {
    subjectPct_.set(baseline.subjectPct);
    measuringPct_.set(baseline.measuringPct);
    const double to = ParseValue(baseline.ratio[1], session.regional);
    baselineRatio_ = ParseValue(baseline.ratio[0], session.regional) / (to > 0 ? to : 1);
    openStored();
    refresh();
}

void GuardPlot::bindRange() {
    bindEntry(LowerLimitBox, from_, ofPercent());
    bindEntry(UpperLimitBox, to_, ofPercent());
    bindEntry(NumberPointsBox, count_, false);
    bindEntry(txt_SUPctInTol, subjectPct_, true);
    bindEntry(txt_MTEPctInTol, measuringPct_, true);
    const auto plotOrGoTo = [this](const TextBox& next) {
        return [this, &next] {
            if (rangeFilled())
                plot();
            else
                session_.ui.focus({name, next.name}, true);
        };
    };
    LowerLimitBox.returned = plotOrGoTo(UpperLimitBox);
    UpperLimitBox.returned = plotOrGoTo(LowerLimitBox);
    NumberPointsBox.returned = plotOrGoTo(LowerLimitBox);
    LowerLimitBox.escaped = [this] { from_.typed = from_.kept; };
    UpperLimitBox.escaped = [this] { to_.typed = to_.kept; };
}

void GuardPlot::bindEntry(TextBox& box, Entry& entry, bool percent) {
    box.edited = [this, &entry](const std::string& text) {
        entry.typed = text;
        changed();
    };
    box.left = [this, &box, &entry, percent](const std::string& text) -> FieldResult {
        entry.typed = text;
        if (percent && refusePercent(entry, box.name)) return {true, entry.kept};
        entry.kept = text;
        return {false, text};
    };
}

void GuardPlot::bindOptions() {
    const auto show = [this](ShownRisks risks) {
        return [this, risks](bool) {
            shown_ = risks;
            draw();
        };
    };
    Opt_FalseAccept.clicked = show(ShownRisks::FalseAccept);
    Opt_FalseReject.clicked = show(ShownRisks::FalseReject);
    Opt_Both.clicked = show(ShownRisks::Both);
    Chk3D_ThickLines.clicked = [this](bool on) {
        thick_ = on;
        draw();
    };
    chk_SmoothCurve.clicked = [this](bool on) {
        smooth_ = on;
        startSmooth();
        draw();
    };
    chk_IncludeGuardbands.clicked = [this](bool on) {
        includeGuardbands_ = on;
        optionChanged();
    };
    chk_IncludeMTESigma.clicked = [this](bool on) {
        includeProcess_ = on;
        optionChanged();
    };
    optShowPct.clicked = [this](bool) { showOnAxis(false); };
    optShowSigma.clicked = [this](bool) { showOnAxis(true); };
    CmdPlotGraph.isPrimary = true;
    CmdPlotGraph.clicked = [this](bool) { plot(); };
    CmdCancelPlot.clicked = [this](bool) { cancelled_ = true; };
    Graph1.resized = [this](double width, double) {
        const auto pixels = static_cast<std::size_t>(std::clamp(width * axisShare, 2.0, 10000.0));
        if (pixels == pixels_) return;
        pixels_ = pixels;
        startSmooth();
    };
}

void GuardPlot::bindMenus() {
    menus = {
        {.control = "mnu_Exit", .caption = "&Close", .run = [this] { close(Way::Cancel); }},
        {.control = "mnu_CopyGraph",
         .caption = "Copy &Graph",
         .run = [this] { session_.ui.copyPicture(Graph1); },
         .shortcut = "Ctrl+Shift+C"},
        {.control = "mnu_CopyData", .caption = "Copy &Data", .run = [this] { copyData(); }},
        {.control = "mnu_PrintGraph",
         .caption = "&Print Graph",
         .run = [this] { printGraph(); },
         .shortcut = "Ctrl+P"},
        runMenu(session_),
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
}

void GuardPlot::openStored() {
    const Analysis& r = session_.record;
    count_.set(std::to_string(firstPoints));
    if (r.GuardPlotMode != drawnWords().mode || r.PlotPointCount == 0) return propose();
    from_.set(r.PlotLowerText);
    to_.set(r.PlotUpperText);
    count_.set(std::to_string(r.PlotPointCount));
    proposed_.clear();
    if (r.PlotInputs != inputs()) return drawQuietly();
    current_ = true;
    drawnBy_ = options();
    drawn_ = {valueOf(from_), valueOf(to_), static_cast<std::size_t>(r.PlotPointCount)};
    draw();
}

/// Something to look at and to begin with: a range with round steps.
void GuardPlot::propose() {
    struct Proposal {
        const char *from, *to;
    };
    const Analysis& r = session_.record;
    const bool oneSided = !r.OptTwoSided && !r.PhysLimitRequired;
    const Proposal range = swept_ == Swept::Multiplier      ? Proposal{"0.75", "1.25"}
                           : swept_ == Swept::KFactor       ? Proposal{"0", "1"}
                           : swept_ == Swept::BaselineRatio ? Proposal{"1", "6"}
                           : oneSided                       ? Proposal{"55", "95"}
                                                            : Proposal{"45", "95"};
    from_.set(FormatNumber(ParseValue(range.from, {}), "General Number", session_.regional));
    to_.set(FormatNumber(ParseValue(range.to, {}), "General Number", session_.regional));
    drawQuietly();
}

/// The points that have risks, of a plot that nobody has asked for: nothing is told and nothing stored.
void GuardPlot::drawQuietly() {
    proposed_.clear();
    drawnBy_ = options();
    const SweepRange points{valueOf(from_), valueOf(to_),
                            static_cast<std::size_t>(std::max(2.0, valueOf(count_)))};
    for (const auto& point : RiskSweep(session_.record, session_.regional, swept_, drawnBy_).over(points))
        if (point) proposed_.push_back(pointOf(*point));
    draw();
}

/// Of the analysis, what the axis holds.
std::optional<double> GuardPlot::presentValue() const {
    const Analysis& r = session_.record;
    switch (swept_) {
    case Swept::Multiplier:
        return r.OptTwoSided && r.GB_UpperMult != r.GB_LowerMult ? std::optional<double>{}
               : r.OptSingleLower                                ? r.GB_LowerMult
                                                                 : r.GB_UpperMult;
    case Swept::KFactor: return r.OptSingleLower ? r.GB_LowerK : r.GB_UpperK;
    case Swept::SubjectPct: return r.SU_PctInTol;
    case Swept::MeasuringPct: return r.MTE_PctInTol;
    case Swept::BaselineRatio: return baselineRatio_;
    }
    return {};
}

/// By the options of the curve, so that it stands on it.
std::optional<RiskPoint> GuardPlot::present() const {
    const auto value = presentValue();
    if (!value) return {};
    const auto point = RiskSweep(session_.record, session_.regional, swept_, drawnBy_).at(*value);
    if (!point) return {};
    const double x = drawnSigma_ ? subjectUnits(session_.record).shown(point->subjectSigma) : point->x;
    return RiskPoint{x, point->risks.falseAccept * 100, point->risks.falseReject * 100};
}

void GuardPlot::refresh() {
    const Analysis& r = session_.record;
    const bool baseline = swept_ == Swept::BaselineRatio;
    for (Control* control : controls()) {
        control->enabled = !computing_;
        if (auto* button = dynamic_cast<Button*>(control)) button->resting = "The plot is being computed";
    }
    CmdCancelPlot.allow(computing_, "Nothing is being computed");
    Lbl_Message.enabled = MessageBox1.enabled = MessagePanel.enabled = Graph1.enabled = true;
    MessagePanel.visible = computing_;
    MessageBox1.value = done_;

    const std::string label = wordsOf(swept_, r.MTE_EntryByUncertainty).label;
    caption = "Risk vs. " + label;
    pnl_PlotPointsHdr.text = pnl_PlotPoints.text = "  Plot " + label;
    LowerLimitBox.text = from_.typed;
    UpperLimitBox.text = to_.typed;
    NumberPointsBox.text = count_.typed;
    txt_SUPctInTol.text = subjectPct_.typed;
    txt_MTEPctInTol.text = measuringPct_.typed;
    optShowPct.visible = optShowSigma.visible = ofPercent();
    if (swept_ != Swept::SubjectPct)
        optShowSigma.allow(false, "Only percentages of the subject parameter have them");
    optShowSigma.checked = showSigma_;
    optShowPct.checked = !showSigma_;
    pnl_Baseline.visible = baseline;
    pnl_Include.visible = !baseline;
    chk_IncludeGuardbands.visible = ofPercent();
    chk_IncludeGuardbands.checked = includeGuardbands_;
    chk_IncludeMTESigma.visible = swept_ == Swept::MeasuringPct;
    chk_IncludeMTESigma.checked = includeProcess_;
    pnl_ProcessUncertainty.text = baseline ? "" : uncertaintyLines(r, session_.regional);

    Opt_FalseAccept.checked = shown_ == ShownRisks::FalseAccept;
    Opt_FalseReject.checked = shown_ == ShownRisks::FalseReject;
    Opt_Both.checked = shown_ == ShownRisks::Both;
    Chk3D_ThickLines.checked = thick_;
    chk_SmoothCurve.checked = smooth_;
    for (const char* command : {"mnu_CopyGraph", "mnu_CopyData", "mnu_PrintGraph"})
        findItem(menus, command)->off = computing_ || !current_;
    findItem(menus, "mnu_Exit")->off = findItem(menus, "mnu_Help")->off = computing_;
}

SweepWords GuardPlot::drawnWords() const {
    if (drawnSigma_) return sigmaWords(session_.record);
    return wordsOf(swept_, session_.record.MTE_EntryByUncertainty);
}

SweepOptions GuardPlot::options() const {
    return {.includeGuardbands = includeGuardbands_,
            .includeProcess = includeProcess_,
            .baselineSubjectPct = valueOf(subjectPct_),
            .baselineMeasuringPct = valueOf(measuringPct_)};
}

/// The record's entries and fits, and the screen's options.
std::vector<double> GuardPlot::inputs() const {
    const Analysis& r = session_.record;
    const SweepOptions o = options();
    double withProcess = 0;
    try {
        withProcess = budgetOf(r, session_.regional).with(r.MTE_StdUncertainty);
    } catch (const RuntimeFault&) {
        // Of no use in a comparison either.
    }
    const auto flag = [](bool on) { return on ? 1.0 : 0.0; };
    return {r.SU_Mode,
            r.SU_UpperLimit,
            r.SU_LowerLimit,
            r.SU_UpperOffset,
            r.SU_LowerOffset,
            r.SU_PctInTol,
            r.SU_Sigma,
            r.SU_TolUnitsFactor,
            r.PhysicalLimit,
            flag(r.PhysLimitRequired),
            flag(r.OptTwoSided),
            flag(r.OptSingleUpper),
            r.MTE_Offset,
            r.MTE_PctInTol,
            r.MTE_DegFreedom,
            r.MTE_StdUncertainty,
            r.MTE_Sigma,
            withProcess,
            r.GB_UpperMult,
            r.GB_LowerMult,
            static_cast<double>(r.FalseAcceptOption),
            flag(o.includeGuardbands),
            flag(o.includeProcess),
            flag(showSigma_),
            o.baselineSubjectPct,
            o.baselineMeasuringPct};
}

double GuardPlot::valueOf(const Entry& entry) const {
    return ParseValue(entry.typed, session_.regional);
}

void GuardPlot::changed() {
    current_ = false;
}

/// A plot that was asked for stays until the next is; one that nobody asked for follows.
void GuardPlot::optionChanged() {
    changed();
    if (drawn_.points == 0) drawQuietly();
}

/// True if the entry was too large, which has been told; its last text is back.
bool GuardPlot::refusePercent(Entry& entry, const char* box) {
    if (valueOf(entry) < 100) return false;
    tell(session_.ui, illegalPercent);
    entry.typed = entry.kept;
    session_.ui.focus({name, box}, true);
    return true;
}

bool GuardPlot::rangeFilled() const {
    return !from_.typed.empty() && !to_.typed.empty();
}

bool GuardPlot::mayClose(Way) {
    if (!computing_) {
        background_.stop();
        return true;
    }
    cancelled_ = closeAsked_ = true; // it closes once the point in hand is done
    return false;
}

void GuardPlot::copyData() {
    const Analysis& r = session_.record;
    const bool processIncluded = swept_ == Swept::MeasuringPct ? includeProcess_ : bool(r.IncludeUncertainty);
    session_.ui.copyText(
        sweepText(r, {swept_, drawnWords(), processIncluded}, storedPoints(), session_.regional));
}

void GuardPlot::printGraph() {
    if (!session_.ui.print(Graph1, caption)) tell(session_.ui, notPrinted);
}

} // namespace metrisk
