#include "desk/links/RunExternalScreen.h"

#include "base/Text.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/links/ProgramMessages.h"
#include "links/Programs.h"

#include <filesystem>

namespace metrisk {
namespace {

namespace fs = std::filesystem;

constexpr const char* screenTitle = "Run External Application";
constexpr const char* plainTitle = "Metrisk";
constexpr const char* noExtensionTitle = "No Extension";
constexpr Message noApplication{"An Application Name must be entered or selected.", "No Application"};
constexpr Message noName{"Please enter an Application Name.", "No Application Name"};
constexpr Message nameExists{"The Application is already in the list.", plainTitle};
constexpr Message extensionExists{"The File Extension is already in the list", plainTitle};
constexpr Message noPath{"There is no Application Path.", plainTitle};
constexpr Message extensionMissing{"The file name must include a 3-character file extension.",
                                   noExtensionTitle};
constexpr Message extensionNeeded{"You need to enter a file extension for the file type of interest.",
                                  noExtensionTitle};
constexpr Message extensionMismatch{
    "The file extension of the file path must match the file extension in the File Extension box.",
    "Extension Mismatch"};
constexpr Message selectOne{"If adding a new application, you must add it to the list before "
                            "it can be launched.\n"
                            "Otherwise, select the application to be run from the list.",
                            "No Action"};
constexpr Message addFirst{"If adding a new application, you must add it to the list before "
                           "it can be launched.\n"
                           "To do this, click Add on the Run External Application menu.",
                           "No Action"};
constexpr Message noneSelected{"No application selected.", plainTitle};
constexpr Message notSaved{"The list of applications could not be saved.", screenTitle};
constexpr Question openProgram{
    "No application has been selected.  Only applications with an 'exe' extension can be opened.\n"
    "Do you want to open such an application?",
    "Open *.exe File?", BoxButtons::YesNo, Answer::No};
constexpr Question noFiles{"No File Extension has been entered.\n"
                           "This is appropriate if no files are associated with the application.\n"
                           "Is this the case?",
                           "No File Extension", BoxButtons::YesNo, Answer::No};
constexpr Question removeApplication{
    "Are you sure you want to remove the selected application from the list?", "Remove Application",
    BoxButtons::YesNo, Answer::No};

constexpr const char* programExtension = "exe";
constexpr const char* programFilter = "Executable Files (*.exe)|*.exe";

/// As the list can hold it.
std::string trimmed(const std::string& text) {
    return std::string(withoutOuterBlanks(oneLine(text)));
}

/// Without the point.
std::string extensionOf(const std::string& path) {
    const std::string extension = fs::path(path).extension().string();
    return extension.empty() ? extension : extension.substr(1);
}

/// As an extension is typed: with or without its point.
std::string typedExtension(const std::string& text) {
    const std::string extension = trimmed(text);
    return extension.starts_with('.') ? extension.substr(1) : extension;
}

fs::path listFile(const Session& session) {
    return fs::path(session.places.HomeDirectory) / "Include" / "Selected Apps.ss3";
}

} // namespace

RunExternalScreen::RunExternalScreen(Session& session)
    : Worksheet("form_RunExternal", screenTitle, "external-programs"), session_(session),
      file_(listFile(session)) {
    menus = {{.control = "mnu_Close", .caption = "&Close", .run = [this] { close(Way::Ok); }},
             {.control = "mnu_Edit_0", .caption = "&Add", .run = [this] { add(); }},
             {.control = "mnu_Edit_1",
              .caption = "&Update",
              .items = {{.control = "mnu_Update_0",
                         .caption = "&Application Name",
                         .run = [this] { update(Column::Name); }},
                        {.control = "mnu_Update_1",
                         .caption = "Application &Path",
                         .run = [this] { update(Column::Path); }},
                        {.control = "mnu_Update_2",
                         .caption = "&File Extension",
                         .run = [this] { update(Column::Extension); }}}},
             {.control = "mnu_Edit_2", .caption = "&Delete", .run = [this] { remove(); }},
             {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }}};
    chk_Exe.checked = true;
    bindBoxes();
    if (!session_.places.HomeDirectory.empty()) AppsList_ = file_.load();
    select(-1);
    refresh();
}

void RunExternalScreen::bindBoxes() {
    for (TextBox* box : {&txt_AppName, &txt_AppPath, &txt_AppExt, &txt_FilePath}) {
        box->left = [box](const std::string& text) {
            box->text = text;
            return FieldResult{false, text};
        };
        box->edited = [box](const std::string& text) { box->text = text; };
    }
    Lst_Apps.whenEmpty = "No programs yet. Browse...";
    Lst_Apps.chosen = [this](int row) { select(row); };
    cmd_NewApp.clicked = [this](bool) { newApp(); };
    cmd_Browse.clicked = [this](bool) { browse(); };
    cmd_BrowseFiles.clicked = [this](bool) { browseFiles(); };
    cmd_Run.isPrimary = true;
    cmd_Run.clicked = [this](bool) { run(); };
    for (CheckBox* box : {&chk_Exe, &chk_NewFile}) box->clicked = [box](bool on) { box->checked = on; };
}

void RunExternalScreen::refresh() {
    Lst_Apps.items.clear();
    for (const Application& row : AppsList_) Lst_Apps.items.push_back(row.name);
    txt_FilePath.enabled = !chk_NewFile.checked;
    cmd_BrowseFiles.allow(!chk_NewFile.checked, "The program starts without a file");
}

bool RunExternalScreen::mayClose(Way) {
    if (!session_.places.HomeDirectory.empty() && !file_.save(AppsList_)) tell(session_.ui, notSaved);
    return true;
}

void RunExternalScreen::select(int row) {
    Lst_Apps.index = row;
    newApplication_ = false;
    const Application none;
    const Application& shown = row < 0 ? none : AppsList_[static_cast<std::size_t>(row)];
    txt_AppName.text = shown.name;
    txt_AppPath.text = shown.path;
    txt_AppExt.text = shown.extension;
    txt_FilePath.text.clear();
}

void RunExternalScreen::newApp() {
    select(-1);
    newApplication_ = true;
    session_.ui.focus({name, txt_AppName.name});
}

void RunExternalScreen::browse() {
    if (!session_.desktop) return;
    if (trimmed(txt_AppName.text).empty()) {
        tell(session_.ui, noApplication);
        return;
    }
    const auto chosen = session_.desktop->files.chooseToOpen({.title = "Browse", .filter = programFilter});
    if (!chosen) return;
    // The list holds a path in a column of one line.
    if (!launchOf(*chosen) || chosen->find_first_of("\t\r\n") != std::string::npos)
        tell(session_.ui, notExecutable);
    else
        txt_AppPath.text = *chosen;
}

void RunExternalScreen::browseFiles() {
    if (!session_.desktop) return;
    const std::string extension = typedExtension(txt_AppExt.text);
    if (extension.empty()) {
        tell(session_.ui, extensionNeeded);
        return;
    }
    const std::string pattern = "*." + extension;
    const std::string filter = trimmed(txt_AppName.text) + " Files (" + pattern + ")|" + pattern;
    const auto chosen = session_.desktop->files.chooseToOpen(
        {.title = "Browse", .filter = chk_Exe.checked ? filter : "All File Types (*.*)|*.*"});
    if (!chosen) return;
    const std::string found = extensionOf(*chosen);
    if (equalCaseBlind(found, extension))
        txt_FilePath.text = *chosen;
    else
        tell(session_.ui, countCharacters(found) == 3 ? extensionMismatch : extensionMissing);
}

void RunExternalScreen::run() {
    if (!session_.desktop) return;
    if (Lst_Apps.index < 0) {
        tell(session_.ui, newApplication_ ? addFirst : selectOne);
        return;
    }
    const std::string path = trimmed(txt_AppPath.text);
    if (path.empty()) {
        runOther();
        return;
    }
    const std::string extension = typedExtension(txt_AppExt.text);
    const bool alone = chk_NewFile.checked || equalCaseBlind(extension, programExtension);
    launch(path, alone ? "" : trimmed(txt_FilePath.text), extension);
}

void RunExternalScreen::runOther() {
    if (ask(session_.ui, openProgram) != Answer::Yes) {
        tell(session_.ui, noneSelected);
        return;
    }
    const std::string pattern = std::string("*.") + programExtension;
    const auto chosen = session_.desktop->files.chooseToOpen(
        {.title = screenTitle, .filter = pattern + " (" + pattern + ")|" + pattern});
    if (chosen) launch(*chosen, "", programExtension);
}

void RunExternalScreen::launch(const std::string& program, const std::string& document,
                               const std::string& extension) {
    const auto command = launchOf(program, document);
    if (command && session_.desktop->programs.start(*command).empty()) return;
    if (document.empty()) {
        tell(session_.ui, notExecutable);
        return;
    }
    tell(session_.ui, {"Please associate the '" + extension + "' file extension with the desired application",
                       plainTitle});
}

bool RunExternalScreen::refuseName(int row) {
    const std::string typed = trimmed(txt_AppName.text);
    if (typed.empty()) {
        tell(session_.ui, noName);
        return true;
    }
    for (int i = 0; const Application& other : AppsList_)
        if (i++ != row && equalCaseBlind(other.name, typed)) {
            tell(session_.ui, nameExists);
            return true;
        }
    return false;
}

bool RunExternalScreen::refuseExtension(int row) {
    const std::string extension = typedExtension(txt_AppExt.text);
    for (int i = 0; const Application& other : AppsList_)
        if (i++ != row && !extension.empty() && equalCaseBlind(other.extension, extension)) {
            tell(session_.ui, extensionExists);
            return true;
        }
    return false;
}

bool RunExternalScreen::refusePath() {
    if (!trimmed(txt_AppPath.text).empty()) return false;
    tell(session_.ui, noPath);
    return true;
}

bool RunExternalScreen::isSelected() {
    if (Lst_Apps.index >= 0) return true;
    tell(session_.ui, noApplication);
    return false;
}

void RunExternalScreen::add() {
    if (refuseName(-1) || refuseExtension(-1) || refusePath()) return;
    const std::string extension = typedExtension(txt_AppExt.text);
    if (extension.empty() && ask(session_.ui, noFiles) != Answer::Yes) {
        session_.ui.focus({name, txt_AppExt.name});
        return;
    }
    AppsList_.push_back({trimmed(txt_AppName.text), trimmed(txt_AppPath.text), extension});
    select(static_cast<int>(AppsList_.size()) - 1);
}

void RunExternalScreen::update(Column column) {
    if (!isSelected()) return;
    Application& row = AppsList_[static_cast<std::size_t>(Lst_Apps.index)];
    switch (column) {
    case Column::Name:
        if (!refuseName(Lst_Apps.index)) row.name = trimmed(txt_AppName.text);
        break;
    case Column::Path:
        if (!refusePath()) row.path = trimmed(txt_AppPath.text);
        break;
    case Column::Extension:
        if (!refuseExtension(Lst_Apps.index)) row.extension = typedExtension(txt_AppExt.text);
        break;
    }
}

void RunExternalScreen::remove() {
    if (!isSelected() || ask(session_.ui, removeApplication) != Answer::Yes) return;
    AppsList_.erase(AppsList_.begin() + Lst_Apps.index);
    select(-1);
}

} // namespace metrisk
