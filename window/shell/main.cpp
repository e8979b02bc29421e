// The window program.
#include "desk/appearance/SchemeSettings.h"
#include "desk/files/ClearAnalysis.h"
#include "desk/files/StartUp.h"
#include "desk/kit/Session.h"
#include "window/kit/LookStyle.h"
#include "window/kit/QtInteraction.h"
#include "window/kit/ToolIcon.h"
#include "window/shell/Application.h"
#include "window/shell/HelpDesk.h"
#include "window/shell/Layouts.h"
#include "window/shell/MainWindow.h"
#include "window/shell/SplashScreen.h"
#include "window/shell/SystemFacts.h"
#include "window/shell/UnsavedWork.h"

#include <QSessionManager>
#include <QTimer>
#include <cstdio>
#include <exception>
#include <memory>
#include <string_view>

namespace {

using namespace metrisk;

constexpr int splashMilliseconds = 1000;

/// What can be answered without a desktop.
bool answered(int argc, char** argv) {
    if (argc != 2) return false;
    const std::string_view option = argv[1];
    if (option == "--version") {
        std::puts("metrisk " METRISK_VERSION);
    } else if (option == "--help" || option == "-h") {
        std::puts("Usage: metrisk [FILE]\n\n"
                  "Opens the window, on the analysis file if one is named.\n\n"
                  "  --help     this text\n"
                  "  --version  the version\n\n"
                  "metrisk-cli computes without a window.");
    } else {
        return false;
    }
    return true;
}

std::vector<std::string> argumentsOf(const QApplication& app) {
    std::vector<std::string> arguments;
    for (const QString& argument : app.arguments().mid(1)) arguments.push_back(argument.toStdString());
    return arguments;
}

} // namespace

int main(int argc, char** argv) {
    if (answered(argc, argv)) return 0;
    Application app(argc, argv);
    QApplication::setApplicationName("metrisk");
    QApplication::setApplicationVersion(METRISK_VERSION);
    QApplication::setDesktopFileName("metrisk");
    QApplication::setWindowIcon(programIcon());

    const UserSettings user = openUserSettings();
    Settings& settings = *user.file;
    QtInteraction ui(layoutOf);
    HelpDesk help(ui);
    const SystemClock clock;
    Session session{settings, ui, clock};
    session.record.FirstDisplay = true;
    const std::string programFolder = QApplication::applicationDirPath().toStdString();
    session.places = locatePlaces(settings, programFolder, dataFolder(), sampleUnitsOf(programFolder));
    session.places.SettingsPath = user.path;
    help.HelpFilePath = session.places.HelpFilePath;
    session.regional = systemRegional();
    session.colorScheme = LoadColorScheme(settings);
    fitFonts();
    installLook();

    std::unique_ptr<SplashScreen> splash;
    if (QApplication::platformName() != "offscreen") {
        splash = std::make_unique<SplashScreen>(session.regional, clock.now());
        splash->show();
        QApplication::processEvents();
    }
    ClearAnalysis(session);
    warnOfMissingSymbols(ui);
    MainWindow window(session, ui);
    app.onUnexpected = [&](const char* what) { window.files().tellUnexpected(what); };
    QObject::connect(&app, &QGuiApplication::commitDataRequest, &window, [&](QSessionManager& desktop) {
        if (desktop.allowsInteraction() && !window.endOfDesktop()) desktop.cancel();
        if (desktop.allowsInteraction()) desktop.release();
    });
    QObject::connect(&app, &QApplication::lastWindowClosed, &help, &HelpDesk::close);
    session.record.FileChanged = false;
    window.model().TakeSavedCopy();
    window.resize(window.sizeHint());

    // The file comes once there is a screen to show boxes over.
    const std::string file = commandLineFile(argumentsOf(app));
    QTimer::singleShot(0, &window, [&] {
        try {
            window.show();
        } catch (const std::exception& error) {
            ui.show({.text = std::string("Error loading Metrisk form.\n") + error.what(),
                     .icon = BoxIcon::Exclamation});
            QApplication::exit(1);
            return;
        }
        // The splash never delays the screen that it announces.
        if (splash) splash->closeWith(window, splashMilliseconds);
        window.keepUnsavedWork(recoveryFolder());
        window.unsavedWork()->watchSignals();
        if (!file.empty()) window.openAtStart(QString::fromStdString(file)); // a table stays until it is left
        window.offerUnsavedWork();
        window.listen();
        session.record.FirstDisplay = session.record.LoadInProgress = false;
    });
    return QApplication::exec();
}
