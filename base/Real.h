// A checked double: every operation that leaves the finite numbers raises RuntimeFault.
#pragma once

#include <cmath>
#include <concepts>
#include <exception>
#include <string_view>
#include <type_traits>

namespace metrisk {

enum class FaultKind {
    NotFinite, // overflow, a division by zero, a logarithm or root without a value
    Argument,  // an argument for which the routine has no answer
    Endless    // a walk, series or bracket that has used up its count
};

/// A numeric fault. It never leaves the routine that owns the trap.
struct RuntimeFault : std::exception {
    FaultKind kind = FaultKind::NotFinite;
    std::string_view routine; // the procedure that failed, empty within its arithmetic; a literal
    double number = 0;        // the argument at fault

    RuntimeFault() = default;
    RuntimeFault(FaultKind faultKind, std::string_view faultRoutine, double faultNumber = 0)
        : kind(faultKind), routine(faultRoutine), number(faultNumber) {}

    const char* what() const noexcept override { return "numeric fault"; }
};

/// Runs `work`; a fault in it that names no routine yet leaves with this name.
template <class Work>
auto faultsNamed(std::string_view routine, Work work) {
    try {
        return work();
    } catch (RuntimeFault& fault) {
        if (fault.routine.empty()) fault.routine = routine;
        throw;
    }
}

/// The value itself if it is finite; otherwise raises RuntimeFault. Underflow to 0 is no fault.
inline double checked(double value) {
    if (!std::isfinite(value)) throw RuntimeFault{};
    return value;
}

/// Implicit from any arithmetic type, explicit (`value()`) to double.
class Real {
  public:
    Real() = default;
    template <class T>
    requires std::is_arithmetic_v<T> Real(T value) : value_(checked(static_cast<double>(value))) {}

    double value() const { return value_; }

    friend Real operator+(Real a, Real b) { return a.value_ + b.value_; }
    friend Real operator-(Real a, Real b) { return a.value_ - b.value_; }
    friend Real operator*(Real a, Real b) { return a.value_ * b.value_; }
    friend Real operator/(Real a, Real b) { return a.value_ / b.value_; }
    friend Real operator-(Real a) { return -a.value_; }
    Real& operator+=(Real b) { return *this = *this + b; }
    Real& operator-=(Real b) { return *this = *this - b; }
    Real& operator*=(Real b) { return *this = *this * b; }
    Real& operator/=(Real b) { return *this = *this / b; }

    friend bool operator==(Real a, Real b) { return a.value_ == b.value_; }
    friend auto operator<=>(Real a, Real b) { return a.value_ <=> b.value_; }

    friend Real exp(Real x) { return std::exp(x.value_); }
    friend Real expm1(Real x) { return std::expm1(x.value_); }
    friend Real log(Real x) { return std::log(x.value_); }
    friend Real sqrt(Real x) { return std::sqrt(x.value_); }
    friend Real abs(Real x) { return std::fabs(x.value_); }
    friend Real pow(Real x, Real y) { return std::pow(x.value_, y.value_); }

  private:
    double value_ = 0;
};

} // namespace metrisk
