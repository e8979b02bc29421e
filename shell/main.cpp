// The window program.
#include "model/Session.h"
#include "persistence/ClearAnalysis.h"
#include "persistence/SettingsFile.h"
#include "shell/StartUp.h"
#include "shell/screens/MainWindow.h"
#include "shell/screens/QtInteraction.h"
#include "shell/screens/SplashScreen.h"
#include "shell/screens/SystemFacts.h"

#include <QApplication>
#include <QTimer>
#include <exception>
#include <memory>

namespace {

using namespace metrisk;

constexpr int splashMilliseconds = 1000;

std::vector<std::string> argumentsOf(const QApplication& app) {
    std::vector<std::string> arguments;
    for (const QString& argument : app.arguments().mid(1)) arguments.push_back(argument.toStdString());
    return arguments;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("metrisk");
    QApplication::setApplicationVersion(METRISK_VERSION);
    QApplication::setDesktopFileName("metrisk");

    const std::string settingsPath = defaultSettingsPath();
    installStartingSettings(settingsPath);
    SettingsFile settings(settingsPath);
    QtInteraction ui;
    Session session{settings, ui};
    session.record.FirstDisplay = true;
    const Places places =
        locatePlaces(settings, QApplication::applicationDirPath().toStdString(), dataFolder());
    session.regional = systemRegional();

    const bool watched = QApplication::platformName() != "offscreen";
    std::unique_ptr<SplashScreen> splash;
    if (watched) {
        splash = std::make_unique<SplashScreen>(session.regional);
        splash->show();
        QApplication::processEvents();
    }
    ClearAnalysis(session);
    warnOfMissingSymbols(ui);
    MainWindow window(session, ui);
    window.setPlaces(places);
    session.record.FileChanged = false;
    window.model().TakeSavedCopy();
    window.resize(window.sizeHint());

    // The main screen follows the splash; the file comes once there is a screen to show boxes over.
    const std::string file = commandLineFile(argumentsOf(app));
    QTimer::singleShot(watched ? splashMilliseconds : 0, &window, [&] {
        try {
            window.show();
        } catch (const std::exception& error) {
            ui.show({.text = std::string("Error loading Metrisk form.\n") + error.what(),
                     .icon = BoxIcon::Exclamation});
            QApplication::exit(1);
            return;
        }
        splash.reset();
        if (!file.empty()) window.openAtStart(QString::fromStdString(file));
        session.record.FirstDisplay = session.record.LoadInProgress = false;
    });
    return QApplication::exec();
}
