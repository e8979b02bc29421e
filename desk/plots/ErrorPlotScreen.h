// The screen of the total measurement error's plot.
#pragma once

#include "desk/plots/PlotScreen.h"

namespace metrisk {

class ErrorPlot final : public PlotScreen {
  public:
    /// A reference that the analysis does not have falls back to the two-sigma limits.
    explicit ErrorPlot(PlotDesk& desk);

  protected:
    void fit() override;
    DistributionPlot compute() override;
    double& zoom() override;
    void showCommands() override;

  private:
    void refer(const char* reference);
    void includeBias();
};

} // namespace metrisk
