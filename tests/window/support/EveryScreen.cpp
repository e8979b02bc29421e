#include "tests/window/support/EveryScreen.h"

#include "desk/kit/ScreenEntry.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/reports/PreviewScreen.h"
#include "tests/window/support/Desk.h"

namespace metrisk::testing {

EveryScreen::EveryScreen(Desk& desk) : plots_(desk.session), reports_(desk.session) {
    const DeskParts parts{desk.session, &files_, &reports_, &plots_};
    screens_.push_back(std::make_unique<MainScreen>(desk.session));
    for (const ScreenEntry& entry : allScreens()) {
        screens_.push_back(entry.make(parts));
        auto* preview = dynamic_cast<PreviewScreen*>(screens_.back().get());
        if (preview && !preview->compose()) qFatal("no report");
    }
}

} // namespace metrisk::testing
