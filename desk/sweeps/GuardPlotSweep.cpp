// What GuardPlot computes and draws.
#include "desk/sweeps/GuardPlot.h"

#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "record/ToleranceUnits.h"
#include "risk/exact/Verified.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr const char* lowerTitle = "Lower Limit Multiplier";
constexpr const char* upperTitle = "Upper Limit Multiplier";
constexpr Message fromNotPositive{"Must be greater than zero.", lowerTitle};
constexpr Message toNotPositive{"Must be between greater than zero.", upperTitle};
constexpr Message toNotGreater{"Must be greater than the lower multiplier.", upperTitle};
constexpr Message countRange{"Must be between 2 and 31.", "Number of Points"};
constexpr Message modified{"Risk could not be computed for all specified points.  Appropriate changes have "
                           "been made.",
                           "Automatic Plot Modifications", BoxIcon::Information};
constexpr double ofAllPoints = 90; // percent that the points take of the bar

} // namespace

void GuardPlot::plot() {
    if (ofPercent() && (refusePercent(from_, LowerLimitBox.name) || refusePercent(to_, UpperLimitBox.name)))
        return;
    const double count = std::trunc(valueOf(count_));
    const bool allowed = count >= 2 && count <= mostPlotPoints;
    const SweepRange range{valueOf(from_), valueOf(to_), allowed ? static_cast<std::size_t>(count) : 0};
    if (rangeAllowed(range)) sweep(range);
}

bool GuardPlot::rangeAllowed(const SweepRange& range) {
    const auto refuse = [this](const Message& message, const TextBox& box) {
        tell(session_.ui, message);
        session_.ui.focus({name, box.name}, true);
        return false;
    };
    const bool anySign = swept_ == Swept::KFactor;
    if (!anySign && !(range.from > 0)) return refuse(fromNotPositive, LowerLimitBox);
    if (!anySign && !(range.to > 0)) return refuse(toNotPositive, UpperLimitBox);
    if (!(range.to > range.from)) return refuse(toNotGreater, UpperLimitBox);
    if (range.points == 0) return refuse(countRange, NumberPointsBox);
    return true;
}

void GuardPlot::sweep(const SweepRange& range) {
    Analysis& r = session_.record;
    r.AbortFlag = false;
    r.PlotPointCount = 0;
    r.PlotLowerText.clear();
    r.PlotUpperText.clear();
    background_.stop();
    curve_.clear();
    proposed_.clear();
    computing_ = true;
    cancelled_ = closeAsked_ = current_ = false;
    done_ = 0;
    const RiskSweep risks(r, session_.regional, swept_, options());
    SweepCourse course(risks);
    bool ended = false;
    {
        const WaitPointer wait(session_.ui);
        for (std::size_t i = 0; i < range.points && !ended; ++i) {
            const double x = range.at(i);
            ended = cancelled_ || !course.add(x, risks.at(x));
            done_ += ofAllPoints / static_cast<double>(range.points);
            session_.ui.refresh(*this);
            session_.ui.yield();
        }
    }
    computing_ = false;
    r.AbortFlag = false;
    const std::vector<SweepPoint>& points = course.points();
    if (points.size() >= 2) {
        if (points.size() < range.points) tellChanges(points, ended);
        store(points);
    } else {
        drawn_ = {};
        draw();
        if (!closeAsked_) tell(session_.ui, modified);
    }
    if (closeAsked_) close(Way::Cancel);
}

/// The boxes tell what was reached; where a text rounds to the end that was not, it gets a decimal more.
void GuardPlot::tellChanges(const std::vector<SweepPoint>& points, bool ended) {
    const Regional& regional = session_.regional;
    const int decimals = std::max(CountDecimals(from_.typed, regional), CountDecimals(to_.typed, regional));
    const auto set = [&](Entry& entry, double x) {
        const std::string asEntered = FormatNumber(valueOf(entry), PictureForDecimals(decimals), regional);
        std::string text = FormatNumber(x, PictureForDecimals(decimals), regional);
        if (text == asEntered) text = FormatNumber(x, PictureForDecimals(decimals + 1), regional);
        entry.set(text);
    };
    if (points.front().x != valueOf(from_)) set(from_, points.front().x);
    if (ended) set(to_, points.back().x);
    count_.set(std::to_string(points.size()));
    if (!closeAsked_) tell(session_.ui, modified);
}

void GuardPlot::store(const std::vector<SweepPoint>& points) {
    Analysis& r = session_.record;
    r.GuardPlotMode = drawnWords().mode;
    r.PlotPointCount = static_cast<int>(points.size());
    r.PlotLowerText = from_.typed;
    r.PlotUpperText = to_.typed;
    for (int i = 1; i <= r.PlotPointCount; ++i) {
        const RiskPoint point = pointOf(points[static_cast<std::size_t>(i - 1)]);
        r.PlotX[i] = static_cast<float>(point.x);
        r.PlotFA[i] = static_cast<float>(point.falseAccept);
        r.PlotFR[i] = static_cast<float>(point.falseReject);
    }
    r.PlotInputs = inputs();
    current_ = true;
    drawnBy_ = options();
    drawnSigma_ = showSigma_;
    drawn_ = {points.front().x, points.back().x, points.size()};
    startSmooth();
    draw();
}

/// The same plot with the other quantity on its axis; one that is out of date waits for the next.
void GuardPlot::showOnAxis(bool sigma) {
    showSigma_ = sigma;
    if (!current_) return;
    std::vector<SweepPoint> points;
    for (const auto& point : RiskSweep(session_.record, session_.regional, swept_, options())
                                 .over(drawn_, SweepFigure::Published))
        if (point) points.push_back(*point);
    store(points);
}

RiskPoint GuardPlot::pointOf(const SweepPoint& point) const {
    const double x = showSigma_ ? subjectUnits(session_.record).shown(point.subjectSigma) : point.x;
    return {x, point.risks.falseAccept * 100, point.risks.falseReject * 100};
}

std::vector<RiskPoint> GuardPlot::storedPoints() const {
    const Analysis& r = session_.record;
    std::vector<RiskPoint> points;
    const auto number = [](float value) { return static_cast<double>(value); };
    for (int i = 1; i <= r.PlotPointCount; ++i)
        points.push_back({number(r.PlotX[i]), number(r.PlotFA[i]), number(r.PlotFR[i])});
    return points;
}

/// Where the exact figure shows other digits, as the window marks such a risk elsewhere.
void GuardPlot::markParted(std::vector<RiskPoint>& points) const {
    if (!current_ || points.size() != drawn_.points) return;
    const auto parts = [this](double percent, double exact) {
        const VerifiedFigure figure{percent / 100, {exact, 0}};
        return !exactRemark(figure, baselinePicture, session_.regional).empty();
    };
    const RiskSweep risks(session_.record, session_.regional, swept_, options());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto exact = risks.at(drawn_.at(i), SweepFigure::Exact);
        if (!exact) continue;
        points[i].acceptParts = parts(points[i].falseAccept, exact->risks.falseAccept);
        points[i].rejectParts = parts(points[i].falseReject, exact->risks.falseReject);
    }
}

/// The points between the ends of the plot, as many as there are pixels.
void GuardPlot::startSmooth() {
    if (!smooth_ || !current_ || drawn_.points < 2) {
        background_.stop();
        curve_.clear();
        return;
    }
    const RiskSweep risks(session_.record, session_.regional, swept_, options());
    const double factor = drawnSigma_ ? subjectUnits(session_.record).factor : 0;
    const SweepRange range{drawn_.from, drawn_.to, pixels_};
    background_.start([this, risks, factor, range](const std::stop_token& stop) -> Background::Delivery {
        const auto computed = risks.over(range, SweepFigure::Exact, stop);
        std::vector<RiskPoint> points;
        points.reserve(computed.size());
        for (const auto& point : computed)
            if (point)
                points.push_back({factor > 0 ? point->subjectSigma * factor : point->x,
                                  point->risks.falseAccept * 100, point->risks.falseReject * 100});
        return [this, points = std::move(points)]() mutable {
            curve_ = std::move(points);
            draw();
            session_.ui.refresh(*this);
        };
    });
}

void GuardPlot::draw() {
    const Analysis& r = session_.record;
    const bool extremes = !curve_.empty();
    std::vector<RiskPoint> points = curve_;
    if (!extremes && drawn_.points > 0) {
        points = storedPoints();
        markParted(points);
    } else if (!extremes) {
        points = proposed_;
    }
    const Regional& regional = session_.regional;
    const bool stored = drawn_.points > 0;
    const int decimals = std::max(CountDecimals(stored ? r.PlotLowerText : from_.kept, regional),
                                  CountDecimals(stored ? r.PlotUpperText : to_.kept, regional));
    const Chart chart = riskChart(points, drawnWords(),
                                  {.shown = shown_,
                                   .thick = thick_,
                                   .extremes = extremes,
                                   .falseAcceptOption = r.FalseAcceptOption,
                                   .xDecimals = drawnSigma_ ? 0 : decimals,
                                   .present = present()},
                                  regional);
    Graph1.text = chart.empty() ? "No plot" : inWords(chart, regional);
    Graph1.draw([chart, regional](DrawingSurface& surface) {
        DrawChart(surface, chart, regional, "Enter a range and press Plot Graph");
    });
}

} // namespace metrisk
