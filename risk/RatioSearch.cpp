#include "risk/RatioSearch.h"

#include "base/Real.h"
#include "record/SubjectSide.h"
#include "risk/BaselineTable.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

constexpr int maxPasses = 10000;
constexpr double ceiling = 1000000;
constexpr double toleranceDivisor = 5000;
constexpr double minStepDivisor = 20000;
constexpr double growth = 1.5;

int signOf(double x) {
    return x > 0 ? 1 : x < 0 ? -1 : 0;
}

/// How far the risk at a ratio is from the target; off by up to `doubt`, 0 where it is computed directly.
struct Error {
    double ratio;
    double value;
    double doubt;
};

/// Errors as they are needed: from the table while no comparison is as near as its doubt.
class Errors {
  public:
    explicit Errors(const RatioQuestion& question)
        : question_(question), table_(baselineTableOf(question.baseline)) {}

    Error at(double ratio) {
        const auto joint = table_->joint(ratio);
        if (!joint) return directly(ratio);
        const Probabilities p{*joint, question_.baseline.accepted(ratio), question_.baseline.inTolerance()};
        const double share = question_.onFalseAccept && question_.falseAcceptOption != 1 ? p.accepted : 1;
        return {ratio, errorOf(p), 2 * BaselineTable::doubt / share};
    }

    bool isWithin(Error& error, double tolerance) const {
        settle(error, std::fabs(error.value) - tolerance, error.doubt);
        return !(std::fabs(error.value) > tolerance);
    }
    int sign(Error& error) const {
        settle(error, error.value, error.doubt);
        return signOf(error.value);
    }
    /// Of the size of a less that of b.
    int compare(Error& a, Error& b) const {
        const double apart = std::fabs(a.value) - std::fabs(b.value), doubt = a.doubt + b.doubt;
        settle(a, apart, doubt);
        settle(b, apart, doubt);
        return signOf(std::fabs(a.value) - std::fabs(b.value));
    }

  private:
    Error directly(double ratio) const { return {ratio, errorOf(question_.baseline.at(ratio)), 0}; }
    double errorOf(const Probabilities& p) const {
        const double risk =
            question_.onFalseAccept ? falseAcceptOf(p, question_.falseAcceptOption) : falseRejectOf(p);
        return checked(risk - question_.target);
    }
    void settle(Error& error, double apart, double doubt) const {
        if (error.doubt != 0 && !(std::fabs(apart) > doubt)) error = directly(error.ratio);
    }

    const RatioQuestion& question_;
    std::shared_ptr<BaselineTable> table_;
};

/// All that the next pass depends on.
struct SearchState {
    double ratio;
    double step;
    int direction;
    int good; // passes in a row that came nearer, as far as they matter

    friend bool operator==(const SearchState&, const SearchState&) = default;
};

/// Finds out that a search goes round in circles (R. P. Brent, BIT 20, 1980, 176-184).
class Circle {
  public:
    /// The number of passes between this state and the same one before; 0 if it has not been met.
    int lengthAt(int count, const SearchState& state) {
        if (count > 0 && state == kept_) return count - keptAt_;
        if (count >= 2 * keptAt_) {
            kept_ = state;
            keptAt_ = count;
        }
        return 0;
    }

  private:
    SearchState kept_{};
    int keptAt_ = 0;
};

} // namespace

bool ratioAttained(double ratio) {
    return ratio >= 0.01 && ratio <= 10000;
}

double ratioTolerance(const Analysis& r) {
    if (r.OptTwoSided) return (r.SU_LowerOffset + r.SU_UpperOffset) / 2;
    return r.*presentSide(r).offset;
}

RatioEnd searchRatio(const RatioQuestion& question, double& ratio,
                     FunctionRef<bool(const SearchPass&)> goOn) {
    Errors errors(question);
    const double tolerance = question.target / toleranceDivisor;
    ratio = checked(question.start);
    int direction = 1;
    double step = ratio / 2;
    const double minStep = step / minStepDivisor;
    const double floor = std::exp(-30 * question.baseline.inTolerance());
    int good = 0;
    int count = 0;
    Circle circle;
    Error error = errors.at(ratio);
    bool going = goOn({0, ratio, error.value, tolerance});
    while (!errors.isWithin(error, tolerance) && count < maxPasses && going) {
        if (step < minStep) return RatioEnd::StepTooSmall;
        if (const int length = circle.lengthAt(count, {ratio, step, direction, std::min(good, 4)}))
            count += (maxPasses - 1 - count) / length * length;
        ++count;
        ratio += step * direction;
        if (ratio > ceiling) ratio = ceiling;
        if (ratio < floor) ratio = floor;
        Error last = error;
        const int oldSign = errors.sign(last);
        error = errors.at(ratio);
        going = goOn({count, ratio, error.value, tolerance});
        const int sign = errors.sign(error);
        const int size = errors.compare(error, last);
        if (sign == oldSign && size < 0) {
            if (++good > 3) step *= growth;
        } else if ((sign == oldSign && size > 0) || (sign != 0 && sign == -oldSign)) {
            direction = -direction;
            good = 0;
            step /= std::sqrt(std::numbers::pi);
        }
    }
    return going ? RatioEnd::Found : RatioEnd::Stopped;
}

} // namespace metrisk
