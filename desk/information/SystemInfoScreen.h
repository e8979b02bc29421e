// System and program at a glance, to be read or copied into a message to whoever helps.
#pragma once

#include "desk/information/SystemInfo.h"
#include "desk/kit/Worksheet.h"

namespace metrisk {

struct Session;

class SystemInfoScreen final : public Worksheet {
  public:
    Table tbl_Facts{*this, "tbl_Facts", "Program, system, memory and files"};
    PushButton cmd_Copy{*this, "cmd_Copy", "&Copy", "Copy all as text"};
    PushButton cmd_Close{*this, "cmd_Close", "C&lose", "Leave this screen"};

    explicit SystemInfoScreen(Session& session);

    void refresh() override {}

  private:
    const std::vector<SystemFact> facts_;
};

} // namespace metrisk
