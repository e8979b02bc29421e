#include "desk/plots/PlotScreen.h"

#include "base/Real.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/plots/PlotDesk.h"
#include "drawing/Drawing.h"
#include "plots/DistributionPlots.h"

namespace metrisk {

namespace {

constexpr Message noData{"No Data to Plot.", "No Data", BoxIcon::Information};
constexpr Message noSubjectLimits{"Subject parameter limits not available.", "Non-viable Option"};

constexpr const char* zoomControls[] = {"mnu_ZoomFactor_0", "mnu_ZoomFactor_1", "mnu_ZoomFactor_2",
                                        "mnu_ZoomFactor_3", "mnu_ZoomFactor_4", "mnu_ZoomFactor_5",
                                        "mnu_ZoomFactor_6"};

std::string inWords(const DistributionPlot& plot) {
    if (!plot.holdsData()) return "No data";
    return plot.title + ", " + plot.distribution;
}

} // namespace

PlotScreen::PlotScreen(PlotDesk& desk, PlotKind plotKind, const char* screenName)
    : Worksheet(screenName, "", "plots"), kind(plotKind), desk_(desk) {}

Session& PlotScreen::session() {
    return desk_.session();
}

void PlotScreen::refresh() {
    showCommands();
    const bool fixedRange = kind == PlotKind::SU && plot_.distribution == "Uniform";
    for (int i = 0; i < 7; ++i) {
        check(zoomControls[i], zoom() == zoomFactors[i]);
        item(zoomControls[i]).off = fixedRange;
    }
}

void PlotScreen::clear() {
    plot_ = {};
    pic_Plot.text = inWords(plot_);
    pic_Plot.draw([regional = session().regional](DrawingSurface& surface) {
        DrawDistributionPlot(surface, DistributionPlot{}, regional);
    });
}

void PlotScreen::redraw() {
    Analysis& r = session().record;
    if (stale_) {
        const WaitPointer wait(session().ui);
        r.AbortFlag = false;
        fit();
        if (r.AbortFlag) {
            clear();
            return;
        }
    }
    try {
        plot_ = compute();
    } catch (const RuntimeFault&) {
        plot_ = {};
    }
    stale_ = false;
    if (!plot_.holdsData()) {
        clear();
        tell(session().ui, noData);
        return;
    }
    r.AbortFlag = false;
    if (!tryDrawing()) r.AbortFlag = true;
    pic_Plot.text = inWords(plot_);
    pic_Plot.draw([plot = plot_, regional = session().regional](DrawingSurface& surface) {
        DrawDistributionPlot(surface, plot, regional);
    });
    if (r.AbortFlag) afterFailedDrawing();
}

/// The picture is drawn whenever it is seen, and can ask nobody then.
bool PlotScreen::tryDrawing() {
    Drawing drawing;
    const auto unknown = DrawDistributionPlot(drawing, plot_, session().regional);
    if (!unknown) return true;
    session().ui.show({.text = "Unknown Distribution type: " + *unknown,
                       .title = "Subject Parameter Plot",
                       .icon = BoxIcon::Critical});
    return false;
}

bool PlotScreen::mayClose(Way) {
    gone_ = true;
    desk_.left(*this);
    return true;
}

MenuItem& PlotScreen::item(const char* control) {
    return *findItem(menus, control);
}

void PlotScreen::check(const char* control, bool on) {
    item(control).checked = on;
}

MenuItem PlotScreen::zoomMenu() {
    MenuItem menu{.control = "mnu_Zoom", .caption = "&Zoom"};
    for (int i = 0; i < 7; ++i)
        menu.items.push_back(optionItem(zoomControls[i], zoomNames[i], [this, i] {
            zoom() = zoomFactors[i];
            markStale();
            redraw();
        }));
    return menu;
}

MenuItem PlotScreen::copyItem() {
    return {.control = "mnu_CopyPlot",
            .caption = "Copy &Plot",
            .run = [this] { session().ui.copyPicture(pic_Plot); },
            .shortcut = "Ctrl+C"};
}

MenuItem PlotScreen::redrawItem(const char* control) {
    return {.control = control, .caption = "Re&draw", .run = [this] { redraw(); }, .shortcut = "F5"};
}

MenuItem PlotScreen::returnItem(const char* control) {
    return {.control = control, .caption = "&Return", .run = [this] { desk_.comeBack(*this); }};
}

MenuItem PlotScreen::helpItem() {
    return {.control = "mnu_Help", .caption = "&Help", .run = [this] { session().ui.help(helpPage); }};
}

MenuItem PlotScreen::partnerItem(const char* control, PlotKind partner) {
    return {.control = control, .caption = "", .run = [this, partner] { desk_.showBeside(*this, partner); }};
}

MenuItem PlotScreen::optionItem(const char* control, const char* itsCaption, std::function<void()> choose) {
    return {.control = control, .caption = itsCaption, .run = std::move(choose), .checked = false};
}

void PlotScreen::changed() {
    session().record.FileChanged = true;
    markStale();
    redraw();
}

void PlotScreen::useSubjectLimits(const std::function<void()>& choose) {
    if (hasSubjectLimits(session().record))
        choose();
    else
        tell(session().ui, noSubjectLimits);
}

} // namespace metrisk
