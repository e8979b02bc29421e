#include "desk/links/RunMenu.h"

#include "desk/kit/Interaction.h"
#include "desk/kit/Session.h"
#include "desk/links/PreferredPrograms.h"
#include "desk/links/RunExternalScreen.h"

namespace metrisk {

MenuItem runMenu(Session& session) {
    const auto locate = [&session](Preferred kind, void (*run)(Session&)) {
        return [&session, kind, run] {
            if (LocateApplication(session, kind)) run(session);
        };
    };
    return {.control = "mnu_Run",
            .caption = "Ru&n",
            .items = {{.control = "mnu_Run_Options_0",
                       .caption = "&External Application",
                       .run = [&session] { runExternal(session); }},
                      {.control = "mnu_Run_Options_1",
                       .caption = "&Spreadsheet",
                       .run = [&session] { RunSpreadsheet(session); }},
                      {.control = "mnu_Run_Options_2",
                       .caption = "&Calculator",
                       .run = [&session] { RunCalculator(session); },
                       .separatorAfter = true},
                      {.control = "mnu_Run_Options_4",
                       .caption = "Se&lect",
                       .items = {{.control = "mnu_RunSetups_0",
                                  .caption = "Spreadsheet",
                                  .run = locate(Preferred::Spreadsheet, RunSpreadsheet)},
                                 {.control = "mnu_RunSetups_1",
                                  .caption = "Calculator",
                                  .run = locate(Preferred::Calculator, RunCalculator)}}}}};
}

void runExternal(Session& session) {
    RunExternalScreen screen(session);
    session.ui.run(screen);
}

} // namespace metrisk
