// The figures of the rows of a sheet that have none.
#pragma once

#include "desk/kit/Background.h"
#include "desk/points/PointRules.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace metrisk {

/// Computes in the thread of the screens as long as nobody notices, and what is left then beside it. Every
/// change of the sheet is to be followed by start().
class PointComputing {
  public:
    /// `went` is called in the thread of the screens after each part that was computed beside it.
    PointComputing(Talk& ui, PointSheet& sheet, std::function<void()> went);

    /// Ends what runs, and begins with the rows that these rules have not answered; null answers none.
    void start(std::shared_ptr<const PointRules> rules);
    /// What is computed stays.
    void stop() { background_.stop(); }
    bool isBusy() const { return background_.isBusy(); }
    /// Of the rows that were left to be computed beside the screen, in percent.
    double progress() const;

  private:
    void computePart(std::vector<std::size_t> rows);

    PointSheet& sheet_;
    std::function<void()> went_;
    std::shared_ptr<const PointRules> rules_;
    std::size_t done_ = 0, wanted_ = 0;
    Background background_; // last: its end waits for what uses the others
};

/// Answers each row that these rules have not answered.
void answerAll(PointSheet& sheet, const PointRules& rules);

} // namespace metrisk
