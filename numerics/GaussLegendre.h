// Gauss-Legendre nodes and weights of a fixed order on any interval.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace metrisk {

/// Nodes and weights as plain arrays, so that an integrand can be evaluated over all nodes at once.
/// Nodes ascend for x1 < x2; element i here is node i + 1 of the textbook count.
template <std::size_t N>
struct NodeSet {
    alignas(64) std::array<double, N> x;
    alignas(64) std::array<double, N> w;

    static constexpr std::size_t size() { return N; }
};

/// Fills x and w, of equal length n, with the nodes and weights on [-1, 1] by Newton's iteration on the
/// Legendre polynomial of order n (Abramowitz and Stegun 25.4.29). Nodes are exactly symmetric
/// and right to the last digit; weights, whose derivative is that of the last Newton pass, to some 1e-12.
void unitGaussLegendreNodes(std::span<double> x, std::span<double> w) noexcept;

/// The nodes of order N on [-1, 1], computed at the first call and then shared by all threads.
template <std::size_t N>
const NodeSet<N>& unitNodes() {
    static const NodeSet<N> nodes = [] {
        NodeSet<N> fresh;
        unitGaussLegendreNodes(fresh.x, fresh.w);
        return fresh;
    }();
    return nodes;
}

/// The upper half of the unit nodes of an even order, with twice their weights: for an integrand that is the
/// same on both sides of the middle. Filled up to a multiple of four with weights of 0.
template <std::size_t N>
const NodeSet<(N / 2 + 3) / 4 * 4>& upperUnitNodes() {
    static_assert(N % 2 == 0);
    static const NodeSet<(N / 2 + 3) / 4 * 4> nodes = [] {
        NodeSet<(N / 2 + 3) / 4 * 4> upper{};
        for (std::size_t i = 0; i < N / 2; ++i) {
            upper.x[i] = unitNodes<N>().x[N / 2 + i];
            upper.w[i] = 2 * unitNodes<N>().w[N / 2 + i];
        }
        return upper;
    }();
    return nodes;
}

/// The unit nodes moved to [x1, x2]: x = xm + xl z, w = xl w(z), xm the middle and xl half the length.
/// For x1 > x2 the nodes descend and the weights are negative, as the integral's sign wants it.
template <std::size_t N>
void GaussLegendreNodes(double x1, double x2, NodeSet<N>& nodes) {
    const NodeSet<N>& unit = unitNodes<N>();
    const double xm = (x2 + x1) / 2, xl = (x2 - x1) / 2;
    for (std::size_t i = 0; i < N; ++i) nodes.x[i] = xm + xl * unit.x[i];
    for (std::size_t i = 0; i < N; ++i) nodes.w[i] = xl * unit.w[i];
}

template <std::size_t N>
NodeSet<N> GaussLegendreNodes(double x1, double x2) {
    NodeSet<N> nodes;
    GaussLegendreNodes(x1, x2, nodes);
    return nodes;
}

struct Nodes {
    std::vector<double> x, w;
};

/// The same for an order known at run time only; computed afresh at each call. Empty for n = 0.
Nodes GaussLegendreNodes(double x1, double x2, std::size_t n);

} // namespace metrisk
