// The screens of the subject parameter's and the measuring parameter's plots.
#pragma once

#include "desk/plots/PlotScreen.h"

namespace metrisk {

class SUPlot final : public PlotScreen {
  public:
    explicit SUPlot(PlotDesk& desk);

  protected:
    void fit() override;
    DistributionPlot compute() override;
    double& zoom() override;
    void afterFailedDrawing() override;
    void showCommands() override;

  private:
    bool shaded_ = true;
};

class MTEPlot final : public PlotScreen {
  public:
    explicit MTEPlot(PlotDesk& desk);

  protected:
    void fit() override;
    DistributionPlot compute() override;
    double& zoom() override;
    void afterFailedDrawing() override;
    void showCommands() override;

  private:
    void includeUncertainty();
};

} // namespace metrisk
