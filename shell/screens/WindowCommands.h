// The commands of the main screen's menus and toolbar.
#pragma once

#include "screens/QtFileChooser.h"
#include "shell/FileCommands.h"
#include "shell/StartUp.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <functional>

class QAction;
class QMenu;

namespace metrisk {

class HelpWindow;
class HelpWindow;
class MainWindow;
struct MenuItem;
struct Session;

class WindowCommands final : public QObject {
    Q_OBJECT

  public:
    /// Builds the menus and the toolbar of the window.
    WindowCommands(MainWindow& window, Session& session);

    /// Runs the command of a menu item, as choosing it does.
    void run(const QString& control);

    /// Where files and help are found.
    void setPlaces(const Places& places);
    void openFile(const QString& path);
    /// The exit questions; false when the user stays.
    bool mayExit();
    /// The file named on the command line.
    void openAtStart(const QString& path);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showHelp(const char* page);
    void buildMenus();
    void addItem(QMenu* menu, const MenuItem& item);
    QAction* makeAction(const MenuItem& item);
    void buildToolbar();
    void bind();
    void showEditState();
    void showRecentFiles();

    MainWindow& window_;
    Session& session_;
    QtFileChooser chooser_;
    FileCommands files_;
    QHash<QString, QAction*> actions_;
    QHash<QString, std::function<void()>> commands_;
    QMenu* recent_ = nullptr;
    Places places_;
    QPointer<HelpWindow> help_; // a modal screen's help goes with it
};

} // namespace metrisk
