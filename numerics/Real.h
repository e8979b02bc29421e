// A checked double: every operation that leaves the finite numbers raises RuntimeFault.
#pragma once

#include <cmath>
#include <concepts>
#include <exception>
#include <type_traits>

namespace metrisk {

/// A numeric fault: overflow, division by zero, a bad argument, an exhausted count. It never leaves
/// the routine that owns the trap.
struct RuntimeFault : std::exception {
    const char* what() const noexcept override { return "numeric fault"; }
};

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
