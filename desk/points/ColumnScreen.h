// The name of a column, chosen from the entries that a row can name or typed, screen PointColumn.
#pragma once

#include "desk/kit/Worksheet.h"

namespace metrisk {

struct Session;

class ColumnScreen final : public Worksheet {
  public:
    Label Lbl_Name{*this, "Lbl_Name", "Column &Name"};
    TextBox txt_Name{*this, "txt_Name",
                     "Name of an entry, with a unit in brackets, or any other; finds entries as it is typed",
                     Holds::Words};
    ListBox lst_Entries{*this, "lst_Entries", "Entries that a row can name"};
    Label Lbl_About{*this, "Lbl_About"};
    PushButton cmd_OK{*this, "cmd_OK", "&OK", "Take that column"};
    PushButton cmd_Cancel{*this, "cmd_Cancel", "&Cancel", "Leave the columns as they are"};

    ColumnScreen(Session& session, std::string columnCaption, std::string present);

    void refresh() override;

    /// As it stands in the header.
    const std::string& column() const { return typed_; }

  protected:
    bool mayClose(Way way) override;

  private:
    Session& session_;
    std::string typed_;
    std::vector<std::string_view> found_; // names of the entries listed
};

} // namespace metrisk
