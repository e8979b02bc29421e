// File choosing by the desktop's own dialogs.
#pragma once

#include "desk/kit/FileChooser.h"

class QWidget;

namespace metrisk {

class QtFileChooser final : public FileChooser {
  public:
    explicit QtFileChooser(QWidget* mainWindow) : mainWindow_(mainWindow) {}

    std::optional<std::string> chooseToOpen(const FileRequest& request) override;
    std::optional<std::string> chooseToSave(const FileRequest& request) override;

  private:
    QWidget* mainWindow_;
};

} // namespace metrisk
