// A worksheet of every screen of the program.
#pragma once

#include "desk/kit/FileChooser.h"
#include "desk/kit/Worksheet.h"
#include "desk/plots/PlotDesk.h"
#include "desk/reports/ReportDesk.h"

#include <memory>
#include <vector>

namespace metrisk::testing {

class Desk;

class EveryScreen {
  public:
    explicit EveryScreen(Desk& desk);

    /// The main screen first.
    const std::vector<std::unique_ptr<Worksheet>>& all() const { return screens_; }

  private:
    struct NoFiles final : FileChooser {
        std::optional<std::string> chooseToOpen(const FileRequest&) override { return {}; }
        std::optional<std::string> chooseToSave(const FileRequest&) override { return {}; }
    };

    NoFiles files_;
    PlotDesk plots_;
    ReportDesk reports_;
    std::vector<std::unique_ptr<Worksheet>> screens_;
};

} // namespace metrisk::testing
