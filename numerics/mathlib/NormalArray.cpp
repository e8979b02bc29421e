#include "numerics/mathlib/NormalArray.h"

#include "numerics/mathlib/ArrayKernels.h"

namespace metrisk {

const ArrayKernels& arrayKernels() noexcept {
#if defined(__x86_64__)
    static const ArrayKernels& widest = __builtin_cpu_supports("avx2") ? wideKernels : narrowKernels;
    return widest;
#else
    return narrowKernels;
#endif
}

void Normal(const double* x, double* out, std::size_t n) noexcept {
    arrayKernels().normal(x, out, n);
}

void NormalDensity(const double* x, double* out, std::size_t n) noexcept {
    arrayKernels().normalDensity(x, out, n);
}

void Exponential(double factor, const double* x, double* out, std::size_t n) noexcept {
    arrayKernels().exponential(factor, x, out, n);
}

void ExponentialLessOne(double factor, const double* x, double* out, std::size_t n) noexcept {
    arrayKernels().exponentialLessOne(factor, x, out, n);
}

void NormalWindowShare(const double* x, const NormalWindow& window, double* out, std::size_t n) noexcept {
    arrayKernels().normalWindow(x, window, out, n);
}

double SumOfProducts(const double* a, const double* b, std::size_t n) noexcept {
    return arrayKernels().sumOfProducts(a, b, n);
}

double NormalWindowSum(const double* x, const double* w, std::size_t n, double middle, double half,
                       const NormalWindow& window) noexcept {
    return arrayKernels().normalWindowSum(x, w, n, middle, half, window);
}

} // namespace metrisk
