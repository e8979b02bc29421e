// The main screen's window: panels, menus, toolbar and status bar over its worksheet.
#pragma once

#include "desk/kit/Desktop.h"
#include "desk/links/DDE_Form.h"
#include "desk/links/SocketCarrier.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/shell/MainCommands.h"
#include "window/kit/QtFileChooser.h"
#include "window/kit/QtLauncher.h"
#include "window/reports/QtReportPrinter.h"
#include "window/shell/QtLooks.h"
#include "window/shell/SystemFacts.h"

#include <QMainWindow>

class QLabel;
class QLineEdit;

namespace metrisk {

class QtInteraction;
class ScreenBinder;
class UnsavedWork;

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
    /// Other programs of the user's may ask for the analysis from now on.
    void listen() { carrier_.listen(); }

    /// Keeps unsaved work in the folder from now on.
    void keepUnsavedWork(const std::filesystem::path& folder);
    /// What other runs of the program have left there.
    void offerUnsavedWork();
    /// The desktop ends: asks as closing does. False if the user wants to stay.
    bool endOfDesktop();
    UnsavedWork* unsavedWork() { return unsaved_.get(); }

    QSize sizeHint() const override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void buildToolbar();
    void fitToolbar();
    void showStatus();
    void focusFirst();

    Session& session_;
    QtInteraction& ui_;
    QtFileChooser chooser_;
    QtLauncher launcher_;
    QtLooks looks_{*this};
    QtReportPrinter printer_{this};
    SocketCarrier carrier_;
    DDE_Form errorLedger_;
    Desktop desktop_{chooser_, launcher_, &printer_, &errorLedger_, &looks_, toolkitName()};
    MainScreen model_;
    MainCommands commands_;
    ScreenBinder* binder_;
    QLabel* nextStep_;
    QLabel *area_, *agreement_;
    std::unique_ptr<UnsavedWork> unsaved_;
};

} // namespace metrisk
