// Opening documents by the desktop.
#pragma once

#include "model/Desktop.h"

namespace metrisk {

class QtLauncher final : public Launcher {
  public:
    std::string openDocument(const std::string& path) override;
};

} // namespace metrisk
