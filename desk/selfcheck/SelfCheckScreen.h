// The self-check in the window: the same table, figure by figure.
#pragma once

#include "desk/kit/Worksheet.h"
#include "selfcheck/CheckPage.h"

#include <vector>

namespace metrisk {

struct Session;

class SelfCheckScreen final : public Worksheet {
  public:
    Label Lbl_About{*this, "Lbl_About"};
    Label Lbl_Summary{*this, "Lbl_Summary"};
    CheckBox chk_OnlyNotes{*this, "chk_OnlyNotes", "Only &Notes",
                           "Leave out the figures that agree as printed"};
    Table tbl_Figures{*this, "tbl_Figures", "Published figures beside the program's own"};
    PushButton cmd_Close{*this, "cmd_Close", "&Close", "Leave the self-check"};

    explicit SelfCheckScreen(Session& session);

    void refresh() override;

  private:
    std::vector<std::vector<Table::Cell>> all_;
    std::vector<bool> passed_; // a row each
};

} // namespace metrisk
