// The pictures of toolbars and menus, in colours that can be seen on the desktop's ground.
#pragma once

#include <QIcon>

namespace metrisk {

/// The image of that name, drawn anew whenever the desktop changes between light and dark. Null if there is
/// no such image.
QIcon toolIcon(const QString& name);

/// The program's own, in its own colours.
QIcon programIcon();

} // namespace metrisk
