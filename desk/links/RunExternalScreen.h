// Screen form_RunExternal: the user's list of other programs, edited and run.
#pragma once

#include "desk/kit/Worksheet.h"
#include "links/AppsList.h"

#include <string>

namespace metrisk {

struct Session;

/// Reads the list when it opens and saves it when it is left, either way. Programs need a session with a
/// desktop.
class RunExternalScreen final : public Worksheet {
  public:
    ListBox Lst_Apps{*this, "Lst_Apps", "The programs that you have added"};
    PushButton cmd_NewApp{*this, "cmd_NewApp", "  &New Application", "Enter another program"};
    TextBox txt_AppName{*this, "txt_AppName", "What the program is called in the list", Holds::Words};
    TextBox txt_AppPath{*this, "txt_AppPath", "The program's own file, or its desktop entry", Holds::Words};
    PushButton cmd_Browse{*this, "cmd_Browse", "  Bro&wse", "Choose the program's file"};
    TextBox txt_AppExt{*this, "txt_AppExt",
                       "Extension of the files that the program opens, without the point; may be empty",
                       Holds::Words};
    TextBox txt_FilePath{*this, "txt_FilePath", "A file to open with the program; may be empty",
                         Holds::Words};
    PushButton cmd_BrowseFiles{*this, "cmd_BrowseFiles", "  &Browse", "Choose a file to open"};
    CheckBox chk_Exe{*this, "chk_Exe", "E&xe File",
                     "Browse shows files of the program's extension only; otherwise all files"};
    CheckBox chk_NewFile{*this, "chk_NewFile", "&New File", "Run the program without a file"};
    PushButton cmd_Run{*this, "cmd_Run", "  &Run", "Run the program"};

    explicit RunExternalScreen(Session& session);

    void refresh() override;

  protected:
    bool mayClose(Way way) override;

  private:
    enum class Column { Name, Path, Extension };

    void bindBoxes();
    void select(int row);
    void newApp();
    void browse();
    void browseFiles();
    void run();
    void runOther();
    void launch(const std::string& program, const std::string& document, const std::string& extension);
    void add();
    void update(Column column);
    void remove();

    /// What keeps a name, extension or path from standing in a row; tells the user.
    bool refuseName(int row);
    bool refuseExtension(int row);
    bool refusePath();
    bool isSelected();

    Session& session_;
    AppsFile file_;
    AppsList AppsList_;
    bool newApplication_ = false; // one is being entered
};

} // namespace metrisk
