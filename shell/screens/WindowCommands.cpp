#include "shell/screens/WindowCommands.h"

#include "model/Session.h"
#include "risk/screens/BaselineDialog.h"
#include "risk/screens/EqRatioDialog.h"
#include "risk/screens/FalseAcceptDialog.h"
#include "screens/HelpWindow.h"
#include "screens/Widgets.h"
#include "shell/Menus.h"
#include "shell/RecentFiles.h"
#include "shell/RiskOptionCommand.h"
#include "shell/screens/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QToolBar>
#include <QUrl>

namespace metrisk {

namespace {

/// The image of that name. One that stays disabled is faded; the style's own way brightens it on a dark
/// desktop.
QIcon toolIcon(const QString& name, bool enabled, int size, qreal ratio) {
    QIcon icon(QString(":/icons/%1.svg").arg(name));
    if (enabled) return icon;
    const QPixmap full = icon.pixmap(QSize(size, size), ratio);
    QPixmap faded(full.size());
    faded.setDevicePixelRatio(full.devicePixelRatio());
    faded.fill(Qt::transparent);
    QPainter painter(&faded);
    painter.setOpacity(0.35);
    painter.drawPixmap(0, 0, full);
    painter.end();
    icon.addPixmap(faded, QIcon::Disabled);
    return icon;
}

} // namespace

WindowCommands::WindowCommands(MainWindow& window, Session& session)
    : window_(window), session_(session), chooser_(&window), files_(session, window.model(), chooser_) {
    buildMenus();
    buildToolbar();
    bind();
    qApp->installEventFilter(this); // the help key of the modal screens
}

void WindowCommands::buildMenus() {
    for (const MenuItem& item : mainMenu()) {
        if (item.items.empty()) {
            window_.menuBar()->addAction(makeAction(item));
            continue;
        }
        QMenu* menu = window_.menuBar()->addMenu(qt(item.caption));
        menu->setObjectName(item.control);
        menu->setToolTipsVisible(true);
        for (const MenuItem& below : item.items) addItem(menu, below);
    }
    auto* edit = window_.findChild<QMenu*>("mnu_Edit");
    connect(edit, &QMenu::aboutToShow, this, &WindowCommands::showEditState);
    // The toolbar's editing buttons and the box's keys work without the menu having been opened.
    connect(edit, &QMenu::aboutToHide, this, [edit] {
        for (QAction* action : edit->actions()) action->setEnabled(true);
    });
    auto* file = window_.findChild<QMenu*>("FileAnalysis");
    recent_ = new QMenu("Recent &Files", file);
    recent_->setObjectName("mnu_RecentFiles");
    file->insertMenu(actions_.value("mnu_File_Save"), recent_);
    connect(recent_, &QMenu::aboutToShow, this, &WindowCommands::showRecentFiles);
}

void WindowCommands::addItem(QMenu* menu, const MenuItem& item) {
    if (item.items.empty()) {
        menu->addAction(makeAction(item));
    } else {
        QMenu* below = menu->addMenu(qt(item.caption));
        below->setObjectName(item.control);
        for (const MenuItem& next : item.items) addItem(below, next);
    }
    if (item.separatorAfter) menu->addSeparator();
}

QAction* WindowCommands::makeAction(const MenuItem& item) {
    auto* action = new QAction(qt(item.caption), &window_);
    const QString name = item.control;
    action->setObjectName(name);
    action->setEnabled(item.hasScreen);
    // The boxes have the editing keys already; a second owner would make them ambiguous.
    const bool editing = name.startsWith("mnu_Edit_");
    action->setShortcut(QKeySequence(item.shortcut, QKeySequence::PortableText));
    if (editing) action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, [this, name] { run(name); });
    actions_.insert(name, action);
    return action;
}

void WindowCommands::buildToolbar() {
    QToolBar* bar = window_.addToolBar("Toolbar");
    bar->setObjectName("tb_Main");
    bar->setMovable(false);
    const int size = window_.fontMetrics().lineSpacing() + 4;
    bar->setIconSize({size, size});
    for (const ToolButton& button : mainToolbar()) {
        QAction* command = actions_.value(button.command);
        const bool enabled = command && command->isEnabled();
        const QIcon icon = toolIcon(qt(button.image()), enabled, size, window_.devicePixelRatioF());
        QAction* action =
            bar->addAction(icon, button.toolTip, this, [this, name = QString(button.command)] { run(name); });
        action->setObjectName(QString("tb_Main_%1").arg(button.key));
        if (command) {
            action->setEnabled(command->isEnabled());
            const bool inMenuBar = window_.menuBar()->actions().contains(command);
            if (!inMenuBar && command->icon().isNull()) command->setIcon(icon);
            connect(command, &QAction::changed, action,
                    [command, action] { action->setEnabled(command->isEnabled()); });
        } else {
            action->setEnabled(false);
        }
        if (button.separatorAfter) bar->addSeparator();
    }
}

void WindowCommands::bind() {
    const auto showHelp = [this](const char* page) { this->showHelp(page); };
    const auto runChoice = [this](FalseAcceptScreen& screen) { runFalseAcceptDialog(screen, &window_); };
    const auto runBaseline = [this, showHelp](BaselineScreen& screen) {
        runBaselineDialog(screen, showHelp, &window_);
    };

    commands_ = {
        {"NewAnalysisFile", [this] { files_.NewAnalysisFile(); }},
        {"mnu_File_Open", [this] { files_.mnu_File_Open(); }},
        {"mnu_File_Save", [this] { files_.mnu_File_Save(); }},
        {"mnu_File_SaveAs", [this] { files_.mnu_File_SaveAs(); }},
        {"ExitAnalysis", [this] { window_.close(); }},
        {"BaselineAnalysisScreen",
         [this, runBaseline] {
             BaselineScreen screen(session_);
             runBaseline(screen);
         }},
        {"FalseAcceptOptions",
         [this, runChoice, runBaseline] { FalseAcceptOptions_Click(session_, runChoice, runBaseline); }},
        {"EqAccRatOptions", [this] { EqRatioDialog(session_, &window_).exec(); }},
        {"mnu_HelpContents", [showHelp] { showHelp("contents"); }},
        {"mnu_Help_MainScreen", [showHelp] { showHelp("main-screen"); }},
        {"mnu_Help_Using", [showHelp] { showHelp("using-help"); }},
    };
    const auto onActiveBox = [this](auto action) {
        return [this, action] {
            if (QLineEdit* box = window_.activeBox()) action(box);
        };
    };
    // Not an undo of the analysis: the box's own last edit.
    commands_["mnu_Edit_Undo"] = onActiveBox([](QLineEdit* box) {
        box->undo();
        const QString text = box->text();
        box->setText(text); // empties the box's undo buffer
        box->setModified(true);
    });
    commands_["mnu_Edit_Cut"] = onActiveBox([](QLineEdit* box) { box->cut(); });
    commands_["mnu_Edit_Copy"] = onActiveBox([](QLineEdit* box) { box->copy(); });
    commands_["mnu_Edit_Paste"] = onActiveBox([](QLineEdit* box) { box->paste(); });
    commands_["mnu_Edit_Delete"] = onActiveBox([](QLineEdit* box) {
        if (!box->isReadOnly()) box->del();
    });
}

void WindowCommands::run(const QString& control) {
    const auto command = commands_.value(control);
    if (!command) return;
    const bool editing = control.startsWith("mnu_Edit_") || control.startsWith("mnu_Help");
    if (!editing && !window_.commitEntry()) return;
    command();
    if (!editing) window_.repaintRecord();
}

void WindowCommands::setPlaces(const Places& places) {
    places_ = places;
    files_.HomeDirectory = places.HomeDirectory;
}

void WindowCommands::showHelp(const char* page) {
    // A help file of the user's own comes before the built-in pages.
    const QString file = qt(places_.HelpFilePath);
    if (QFileInfo(file).isFile() && QDesktopServices::openUrl(QUrl::fromLocalFile(file))) return;
    // A modal screen takes all input but that of its own windows.
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* owner = modal ? modal : &window_;
    if (!help_ || help_->parentWidget() != owner) {
        delete help_;
        help_ = new HelpWindow(owner);
    }
    help_->open(page);
}

bool WindowCommands::eventFilter(QObject* watched, QEvent* event) {
    static constexpr std::pair<const char*, const char*> pages[] = {{"FAFORM", "false-accept-option"},
                                                                    {"EqRatio", "equivalent-ratio"},
                                                                    {"BaselineAnalysis", "baseline"},
                                                                    {"Computing", "computing"},
                                                                    {"CommonDialogue", "files"}};
    const QWidget* modal = QApplication::activeModalWidget();
    const bool helpKey =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1;
    if (!helpKey || !modal || !watched->isWidgetType()) return QObject::eventFilter(watched, event);
    const char* page = "messages"; // any other modal window is a message box
    for (const auto& [screen, itsPage] : pages)
        if (modal->objectName() == screen) page = itsPage;
    showHelp(page);
    return true;
}

void WindowCommands::openFile(const QString& path) {
    if (!window_.commitEntry()) return;
    files_.openPath(path.toStdString());
    window_.repaintRecord();
}

void WindowCommands::openAtStart(const QString& path) {
    files_.openAtStart(path.toStdString());
    window_.repaintRecord();
}

bool WindowCommands::mayExit() {
    return window_.commitEntry() && files_.ExitAnalysis();
}

void WindowCommands::showEditState() {
    const QLineEdit* box = window_.activeBox();
    const QMimeData* clipboard = QApplication::clipboard()->mimeData();
    const bool typed = box && !box->isReadOnly();
    actions_["mnu_Edit_Undo"]->setEnabled(typed && box->isUndoAvailable());
    actions_["mnu_Edit_Cut"]->setEnabled(typed && box->hasSelectedText());
    actions_["mnu_Edit_Copy"]->setEnabled(box && box->hasSelectedText());
    actions_["mnu_Edit_Paste"]->setEnabled(typed && clipboard && clipboard->hasText());
    actions_["mnu_Edit_Delete"]->setEnabled(typed && !box->text().isEmpty());
}

void WindowCommands::showRecentFiles() {
    recent_->clear();
    int number = 0;
    for (const std::string& path : recentFiles(session_.settings)) {
        const QString shown = QFileInfo(qt(path)).fileName().replace("&", "&&");
        QAction* action = recent_->addAction(QString("&%1 %2").arg(++number).arg(shown), this,
                                             [this, path] { openFile(qt(path)); });
        action->setToolTip(qt(path));
    }
    if (number == 0) recent_->addAction("(none)")->setEnabled(false);
}

} // namespace metrisk
