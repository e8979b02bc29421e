#include "numerics/mathlib/NormalArray.h"

#include "numerics/mathlib/ArrayKernels.h"

namespace metrisk {

std::span<const ArrayKernels* const> arrayKernels() noexcept {
#if defined(__x86_64__)
    static constexpr const ArrayKernels* all[] = {&narrowKernels, &wideKernels, &widestKernels};
    const bool wide = __builtin_cpu_supports("avx2");
    const bool widest = wide && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq");
    return std::span(all).first(widest ? 3 : wide ? 2 : 1);
#else
    static constexpr const ArrayKernels* all[] = {&narrowKernels};
    return all;
#endif
}

namespace {

const ArrayKernels& chosen() noexcept {
    static const ArrayKernels& widest = *arrayKernels().back();
    return widest;
}

} // namespace

void Normal(const double* x, double* out, std::size_t n) noexcept {
    chosen().normal(x, out, n);
}

void NormalDensity(const double* x, double* out, std::size_t n) noexcept {
    chosen().normalDensity(x, out, n);
}

void Exponential(double factor, const double* x, double* out, std::size_t n) noexcept {
    chosen().exponential(factor, x, out, n);
}

void ExponentialLessOne(double factor, const double* x, double* out, std::size_t n) noexcept {
    chosen().exponentialLessOne(factor, x, out, n);
}

void NormalWindowShare(const double* x, const NormalWindow& window, double* out, std::size_t n) noexcept {
    chosen().normalWindow(x, window, out, n);
}

double SumOfProducts(const double* a, const double* b, std::size_t n) noexcept {
    return chosen().sumOfProducts(a, b, n);
}

double NormalWindowSum(const double* x, const double* w, std::size_t n, double middle, double half,
                       const NormalWindow& window) noexcept {
    return chosen().normalWindowSum(x, w, n, middle, half, window);
}

} // namespace metrisk
