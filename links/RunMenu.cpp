#include "links/RunMenu.h"

namespace metrisk {

MenuItem runMenu(Session&) {
    return {.control = "mnu_Run",
            .caption = "Ru&n",
            .items = {{.control = "mnu_Run_Options_0", .caption = "&External Application"},
                      {.control = "mnu_Run_Options_1", .caption = "&Spreadsheet"},
                      {.control = "mnu_Run_Options_2", .caption = "&Calculator", .separatorAfter = true},
                      {.control = "mnu_Run_Options_4",
                       .caption = "Se&lect",
                       .items = {{.control = "mnu_RunSetups_0", .caption = "Spreadsheet"},
                                 {.control = "mnu_RunSetups_1", .caption = "Calculator"}}}}};
}

} // namespace metrisk
