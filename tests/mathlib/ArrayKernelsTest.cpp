#include "numerics/mathlib/ArrayKernels.h"
#include "tests/mathlib/Closeness.h"

#include <bit>
#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace metrisk::testing {
namespace {

using Values = std::vector<double>;

/// Arguments of every size and both signs, ends and what is no number, in no order: each register holds
/// several kinds of them.
Values arguments() {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    Values x = {0, -0.0, infinity, -infinity, std::nan(""), 1e300, -1e300, 5e-324, 8.5, -8.5, 37, -37, 38.8};
    std::mt19937 random(1);
    for (const double size : {1e-8, 0.3, 3.0, 8.0, 20.0, 38.0, 710.0})
        for (int i = 0; i < 1500; ++i) x.push_back(std::uniform_real_distribution(-size, size)(random));
    std::shuffle(x.begin(), x.end(), random);
    x.resize(x.size() / 4 * 4);
    return x;
}

std::vector<std::uint64_t> bitsOf(const Values& values) {
    std::vector<std::uint64_t> bits;
    for (const double v : values) bits.push_back(std::isnan(v) ? 1 : std::bit_cast<std::uint64_t>(v));
    return bits;
}

constexpr NormalWindow windows[] = {
    {1.6, -1.6, 0.3}, {0.4, -0.1, 2}, {1, -std::numeric_limits<double>::infinity(), 0.01}, {-5, -6, 0.5}};

using Loop = std::function<void(const ArrayKernels&, const double*, double*, std::size_t)>;

struct NamedLoop {
    const char* name;
    Loop run;
};

/// Each element by itself.
std::vector<NamedLoop> loops() {
    std::vector<NamedLoop> all = {
        {"normal", [](const ArrayKernels& k, auto... a) { k.normal(a...); }},
        {"density", [](const ArrayKernels& k, auto... a) { k.normalDensity(a...); }},
        {"exponential", [](const ArrayKernels& k, auto... a) { k.exponential(1, a...); }},
        {"exponential less one", [](const ArrayKernels& k, auto... a) { k.exponentialLessOne(0.7, a...); }},
        {"exponential of a product", [](const ArrayKernels& k, auto... a) { k.exponential(-0.3, a...); }}};
    for (const NormalWindow& window : windows)
        all.push_back({"window", [&window](const ArrayKernels& k, const double* x, double* out,
                                           std::size_t n) { k.normalWindow(x, window, out, n); }});
    return all;
}

TEST(ArrayKernels, EveryWidthAndLengthGivesTheSameBits) {
    const Values x = arguments();
    for (const NamedLoop& loop : loops()) {
        SCOPED_TRACE(loop.name);
        Values one = x;
        for (double& v : one) loop.run(narrowKernels, &v, &v, 1);
        for (const ArrayKernels* kernels : arrayKernels()) {
            Values out(x.size());
            loop.run(*kernels, x.data(), out.data(), x.size());
            EXPECT_EQ(bitsOf(out), bitsOf(one));
            for (std::size_t n = 0; n < 20; ++n) {
                Values few(x.begin(), x.begin() + 20), expected = few;
                std::copy_n(one.begin(), n, expected.begin());
                loop.run(*kernels, few.data(), few.data(), n);
                EXPECT_EQ(bitsOf(few), bitsOf(expected)) << n;
            }
        }
    }
}

TEST(ArrayKernels, SumsHaveFourPartsAtEveryWidth) {
    Values x, w;
    std::mt19937 random(2);
    for (int i = 0; i < 100; ++i) {
        x.push_back(std::uniform_real_distribution(-1.0, 1.0)(random));
        w.push_back(std::uniform_real_distribution()(random));
    }
    const auto inFourParts = [&](const Values& terms) {
        double part[4] = {};
        for (std::size_t i = 0; i < terms.size(); ++i) part[i % 4] += terms[i];
        return (part[0] + part[1]) + (part[2] + part[3]);
    };
    for (const ArrayKernels* kernels : arrayKernels()) {
        Values products;
        for (std::size_t i = 0; i < x.size(); ++i) products.push_back(x[i] * w[i]);
        EXPECT_EQ(kernels->sumOfProducts(x.data(), w.data(), x.size()), inFourParts(products));
        for (const NormalWindow& window : windows)
            for (const double half : {0.1, 1.9, 12.0}) {
                constexpr double middle = 0.2;
                Values u, share(x.size()), density(x.size());
                for (const double node : x) u.push_back(middle + half * node);
                kernels->normalWindow(u.data(), window, share.data(), u.size());
                kernels->normalDensity(u.data(), density.data(), u.size());
                for (std::size_t i = 0; i < x.size(); ++i) products[i] = w[i] * density[i] * share[i];
                EXPECT_EQ(kernels->normalWindowSum(x.data(), w.data(), x.size(), middle, half, window),
                          inFourParts(products));
            }
    }
}

TEST(ArrayKernels, AWindowIsADifferenceOfTwoContents) {
    const Values x = arguments();
    for (const NormalWindow& window : windows) {
        Values upper, lower, share(x.size());
        for (const double v : x) {
            upper.push_back((window.upper - v) / window.sigma);
            lower.push_back((window.lower - v) / window.sigma);
        }
        Normal(upper.data(), upper.data(), x.size());
        Normal(lower.data(), lower.data(), x.size());
        NormalWindowShare(x.data(), window, share.data(), x.size());
        for (std::size_t i = 0; i < x.size(); ++i) lower[i] = upper[i] - lower[i];
        EXPECT_EQ(bitsOf(share), bitsOf(lower));
    }
}

TEST(Exponential, AgreesWithTheLibraryInHigherPrecision) {
    Values x = {0, 709.78, 709.79, -745.13, -746, 1e300, -1e300};
    for (int i = -7400; i <= 7090; ++i) x.push_back(i * 0.1 + 1e-3 / 3);
    for (int i = -3000; i <= 3000; ++i) x.push_back(i * 1e-3 / 3);
    Values out(x.size());
    Exponential(1, x.data(), out.data(), x.size());
    for (std::size_t i = 0; i < x.size(); ++i) {
        const long double exact = std::exp(static_cast<long double>(x[i]));
        if (exact > std::numeric_limits<double>::max())
            EXPECT_TRUE(std::isinf(out[i])) << x[i];
        else if (exact < 1e-307)
            EXPECT_NEAR(out[i], std::exp(x[i]), 5e-324) << x[i]; // subnormal: to their last bit
        else
            EXPECT_TRUE(relativelyClose(callText("Exponential", x[i]), out[i], exact, 5e-16));
    }
}

TEST(Exponential, LessOneAgreesNearZeroToo) {
    Values x = {0, -1e-300, 1e-300, -36, -50, 708};
    for (double size = 1e-20; size < 700; size *= 1.01) x.insert(x.end(), {size, -size});
    Values out(x.size());
    ExponentialLessOne(1, x.data(), out.data(), x.size());
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_TRUE(relativelyClose(callText("ExponentialLessOne", x[i]), out[i],
                                    std::expm1(static_cast<long double>(x[i])), 1e-15));
}

} // namespace
} // namespace metrisk::testing
