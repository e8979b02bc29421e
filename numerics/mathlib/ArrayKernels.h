// The loops over whole arrays, compiled once for each width of register.
#pragma once

#include "numerics/mathlib/NormalArray.h"

#include <span>

namespace metrisk {

/// Every width gives the same bits: no multiplication is fused with an addition, an element's figure depends
/// on that element alone, and a sum has four parts whatever a register holds. The contracts are those of the
/// functions of the same names.
struct ArrayKernels {
    void (*normal)(const double* x, double* out, std::size_t n) noexcept;
    void (*normalDensity)(const double* x, double* out, std::size_t n) noexcept;
    void (*exponential)(double factor, const double* x, double* out, std::size_t n) noexcept;
    void (*exponentialLessOne)(double factor, const double* x, double* out, std::size_t n) noexcept;
    void (*normalWindow)(const double* x, const NormalWindow& window, double* out, std::size_t n) noexcept;
    double (*sumOfProducts)(const double* a, const double* b, std::size_t n) noexcept;
    double (*normalWindowSum)(const double* x, const double* w, std::size_t n, double middle, double half,
                              const NormalWindow& window) noexcept;
};

/// Two doubles a register: any processor.
extern const ArrayKernels narrowKernels;
#if defined(__x86_64__)
/// Four doubles a register: a processor with AVX2.
extern const ArrayKernels wideKernels;
/// Eight doubles a register: a processor with AVX-512.
extern const ArrayKernels widestKernels;
#endif

/// Those that this processor can run, the widest last.
std::span<const ArrayKernels* const> arrayKernels() noexcept;

} // namespace metrisk
