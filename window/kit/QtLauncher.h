// Other programs by the desktop: opening documents, starting programs.
#pragma once

#include "desk/kit/Desktop.h"

namespace metrisk {

class QtLauncher final : public Launcher {
  public:
    std::string openDocument(const std::string& path) override;
    std::string start(const Launch& launch) override;
    Association associationOf(const std::string& path) override;
};

} // namespace metrisk
