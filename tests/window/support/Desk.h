// The main screen on its desk: settings in a folder of its own, scripted boxes, a hand at the keyboard.
#pragma once

#include "desk/kit/Session.h"
#include "persistence/SettingsFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/window/support/BoxAnswerer.h"
#include "window/kit/QtInteraction.h"
#include "window/kit/ScreenBinder.h"
#include "window/shell/HelpDesk.h"
#include "window/shell/Layouts.h"
#include "window/shell/MainWindow.h"

#include <QTest>
#include <memory>
#include <optional>

namespace metrisk::testing {

/// Starts no program of the machine that tests run on.
class NoPrograms final : public Launcher {
  public:
    std::string openDocument(const std::string&) override { return "no programs"; }
    std::string start(const Launch&) override { return ""; }
    Association associationOf(const std::string&) override { return {}; }
};

class Desk {
  public:
    Desk();
    ~Desk();

    /// Starts the program's window anew over the same settings.
    void open();

    TemporaryFolder folder;
    SettingsFile settings;
    QtInteraction ui{layoutOf};
    HelpDesk help{ui};
    SystemClock clock;
    Session session{settings, ui, clock};
    Analysis& record = session.record;
    BoxAnswerer boxes;
    NoPrograms programs;
    std::optional<Desktop> desktop; // the window's file dialogs, and no programs
    std::unique_ptr<MainWindow> window;

    /// The widget of that control, in `within` or the main screen; a missing one ends the test with a list of
    /// those that are there.
    template <class Widget = QWidget>
    Widget* control(const QString& name, QWidget* within = nullptr) {
        QWidget* screen = within ? within : window.get();
        auto* found = screen->findChild<Widget*>(name);
        if (!found) missing(name, *screen);
        return found;
    }

    /// Clicks into the box and types over its text, without leaving it.
    void type(const QString& box, const QString& text, QWidget* within = nullptr);
    /// Types and leaves by Tab; afterwards the screen has settled.
    void enter(const QString& box, const QString& text, QWidget* within = nullptr);
    void click(const QString& control, QWidget* within = nullptr);
    /// Chooses a menu item.
    void choose(const QString& item);
    /// Text of a box, a label or a button.
    QString text(const QString& control, QWidget* within = nullptr);
    bool isChecked(const QString& control, QWidget* within = nullptr);
    /// Name of the control that has the focus of the main screen.
    QString focused();
    /// Every box of the main screen as "name=text" lines, in the order of the names.
    QString allTexts();

    /// Lets queued focus moves and repaints come about, with that screen (none: the main screen) as the
    /// active window.
    void settle(QWidget* screen = nullptr);

    [[noreturn]] static void missing(const QString& name, const QWidget& screen);

    QString examplePath(const QString& name) const;
    QString path(const char* name) const { return QString::fromStdString((folder / name).string()); }
};

/// What the two sides and the measuring parameter of an ordinary analysis are entered as.
void enterTwoSided(Desk& desk);

} // namespace metrisk::testing
