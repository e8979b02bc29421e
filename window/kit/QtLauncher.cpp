#include "window/kit/QtLauncher.h"

#include "links/Associations.h"
#include "window/kit/Widgets.h"

#include <QDesktopServices>
#include <QMimeDatabase>
#include <QProcess>
#include <QUrl>

namespace metrisk {

std::string QtLauncher::openDocument(const std::string& path) {
    // Qt tells success where the desktop's own helper then finds no program.
    if (!associationOf(path).entry.empty() && QDesktopServices::openUrl(QUrl::fromLocalFile(qt(path))))
        return "";
    return "No program is known that opens " + path;
}

std::string QtLauncher::start(const Launch& launch) {
    QProcess process;
    process.setProgram(qt(launch.program));
    QStringList arguments;
    for (const std::string& argument : launch.arguments) arguments += qt(argument);
    process.setArguments(arguments);
    process.setWorkingDirectory(qt(launch.folder));
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (process.startDetached()) return "";
    return process.errorString().toStdString();
}

Association QtLauncher::associationOf(const std::string& path) {
    const QMimeType type = QMimeDatabase().mimeTypeForFile(qt(path));
    std::vector<std::string> types;
    for (const QString& name : QStringList(type.name()) + type.allAncestors())
        // Any file is that: a program for it knows nothing of this one.
        if (name != "application/octet-stream") types.push_back(name.toStdString());
    return findAssociation(types, AssociationPlaces::ofUser());
}

} // namespace metrisk
