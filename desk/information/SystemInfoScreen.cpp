#include "desk/information/SystemInfoScreen.h"

#include "desk/kit/Desktop.h"
#include "desk/kit/Session.h"

namespace metrisk {

SystemInfoScreen::SystemInfoScreen(Session& session)
    : Worksheet("SystemInformation", "System Information", "system-information"),
      facts_(systemFacts(session, session.desktop ? session.desktop->toolkit : "")) {
    tbl_Facts.headings = {"Item", "Value"};
    for (const SystemFact& fact : facts_)
        tbl_Facts.rows.push_back({{.text = fact.name, .locked = true}, {.text = fact.text, .locked = true}});
    cmd_Copy.clicked = [this, &session](bool) { session.ui.copyText(factsText(facts_)); };
    cmd_Close.closes = Way::Ok;
    cmd_Close.isDefault = true;
    cmd_Close.isPrimary = true;
}

} // namespace metrisk
