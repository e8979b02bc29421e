// The main screen's window: panels, menus, toolbar and status bar over its worksheet.
#pragma once

#include "model/Desktop.h"
#include "screens/QtFileChooser.h"
#include "screens/QtLauncher.h"
#include "shell/MainCommands.h"
#include "shell/mainscreen/MainScreen.h"
#include "shell/screens/QtLooks.h"
#include "shell/screens/SystemFacts.h"

#include <QMainWindow>

class QLabel;
class QLineEdit;

namespace metrisk {

class QtInteraction;
class ScreenBinder;

class MainWindow final : public QMainWindow {
    Q_OBJECT

  public:
    MainWindow(Session& session, QtInteraction& ui);
    ~MainWindow() override;

    ScreenBinder& binder() { return *binder_; }
    MainScreen& model() { return model_; }
    FileCommands& files() { return commands_.files; }

    void openFile(const QString& path);
    /// The file named on the command line.
    void openAtStart(const QString& path);

    QSize sizeHint() const override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void buildToolbar();

    Session& session_;
    QtInteraction& ui_;
    QtFileChooser chooser_;
    QtLauncher launcher_;
    QtLooks looks_{*this};
    Desktop desktop_{chooser_, launcher_, looks_, toolkitName()};
    MainScreen model_;
    MainCommands commands_;
    ScreenBinder* binder_;
    QLabel* nextStep_;
};

} // namespace metrisk
