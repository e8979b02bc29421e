#include "screens/QtLauncher.h"

#include "screens/Widgets.h"

#include <QDesktopServices>
#include <QUrl>

namespace metrisk {

std::string QtLauncher::openDocument(const std::string& path) {
    if (QDesktopServices::openUrl(QUrl::fromLocalFile(qt(path)))) return "";
    return "No program is known that opens " + path;
}

} // namespace metrisk
