#include "desk/plots/PlotDesk.h"

#include "desk/kit/PlotMessages.h"
#include "desk/kit/Session.h"
#include "desk/plots/ErrorPlotScreen.h"
#include "desk/plots/ParameterPlotScreens.h"
#include "plots/DistributionPlots.h"

namespace metrisk {

PlotDesk::PlotDesk(Session& session) : session_(session) {}

PlotDesk::~PlotDesk() = default;

bool PlotDesk::hasData(PlotKind kind) const {
    return hasPlotData(session_.record, kind);
}

PlotScreen& PlotDesk::make(PlotKind kind) {
    switch (kind) {
    case PlotKind::SU: screens_.push_back(std::make_unique<SUPlot>(*this)); break;
    case PlotKind::MTE: screens_.push_back(std::make_unique<MTEPlot>(*this)); break;
    case PlotKind::Error: screens_.push_back(std::make_unique<ErrorPlot>(*this)); break;
    }
    return *screens_.back();
}

PlotScreen* PlotDesk::showing(PlotKind kind) const {
    for (const auto& screen : screens_)
        if (screen->kind == kind && !screen->isGone()) return screen.get();
    return nullptr;
}

void PlotDesk::show(PlotKind kind) {
    if (kind == PlotKind::Error && !hasData(kind)) {
        tell(session_.ui, noPlotData);
        return;
    }
    PlotScreen& screen = make(kind);
    screen.redraw();
    screen.refresh();
    session_.ui.run(screen);
    comparison_ = {};
    screens_.clear();
}

bool PlotDesk::compared(const PlotScreen& screen) const {
    return &screen == comparison_.first || &screen == comparison_.second;
}

std::string PlotDesk::captionFor(const PlotScreen& screen, PlotKind other) const {
    const PlotScreen* partner = showing(other);
    const char* const names[] = {"SU Plot", "MTE Plot", "Error Plot"};
    const std::string name = names[static_cast<int>(other)];
    if (partner && compared(screen) && compared(*partner)) return "Re&draw " + name;
    if (partner) return "&Compare " + name;
    if (other == PlotKind::SU && !everCompared_)
        return screen.kind == PlotKind::Error ? "&Compare SU Plot" : "&SUPlot";
    return "&" + name;
}

void PlotDesk::showBeside(PlotScreen& screen, PlotKind other) {
    if (!hasData(other)) {
        tell(session_.ui, noPlotData);
        return;
    }
    PlotScreen* partner = showing(other);
    const bool alreadyCompared = partner && compared(screen) && compared(*partner);
    const bool isNew = !partner;
    if (isNew) partner = &make(other);
    if (!alreadyCompared) {
        comparison_ = {&screen, partner};
        everCompared_ = true;
    }
    partner->redraw();
    if (isNew) {
        partner->refresh();
        session_.ui.open(*partner);
    }
    if (partner->closedBy()) return;
    if (!alreadyCompared) session_.ui.placeBeside(screen, *partner);
    refreshAll();
}

/// Their commands say how the others stand.
void PlotDesk::refreshAll() {
    for (const auto& screen : screens_)
        if (!screen->isGone()) session_.ui.refresh(*screen);
}

void PlotDesk::comeBack(PlotScreen& screen) {
    PlotScreen* partner = nullptr;
    if (compared(screen)) partner = comparison_.first == &screen ? comparison_.second : comparison_.first;
    comparison_ = {};
    screen.close(Way::Ok);
    if (partner && partner->close(Way::Ok)) session_.ui.refresh(*partner);
    refreshAll();
}

void PlotDesk::left(PlotScreen& screen) {
    if (compared(screen)) comparison_ = {};
    refreshAll();
}

} // namespace metrisk
