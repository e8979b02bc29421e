#include "risk/BaselineTable.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

constexpr int worthIt = 12; // questions, as many as a piece asks itself
constexpr int mantissaBits = 52;

/// Coefficients of the powers of x of the polynomial of Chebyshev coefficients, by their recursion.
template <std::size_t n>
std::array<double, n> powers(const std::array<double, n>& chebyshev) {
    std::array<double, n> sum{}, last{}, now{};
    last[0] = 1;
    now[1] = 1;
    for (std::size_t k = 0; k < n; ++k) {
        for (std::size_t i = 0; i < n; ++i) sum[i] += chebyshev[k] * last[i];
        std::array<double, n> next{};
        for (std::size_t i = 0; i < n; ++i) next[i] = (i > 0 ? 2 * now[i - 1] : 0) - last[i];
        last = now;
        now = next;
    }
    return sum;
}

} // namespace

BaselineTable::Piece BaselineTable::made(double middle, double half) const {
    Piece chebyshev{};
    for (int j = 0; j < nodes; ++j) {
        const double angle = std::numbers::pi * (j + 0.5) / nodes;
        const double value = model_.joint(middle + half * std::cos(angle));
        for (int k = 0; k < nodes; ++k)
            chebyshev[static_cast<std::size_t>(k)] += (k == 0 ? 1 : 2) * value * std::cos(k * angle) / nodes;
    }
    return powers(chebyshev);
}

std::optional<double> BaselineTable::joint(double ratio) {
    constexpr int pieceShift = mantissaBits - pieceBits;
    constexpr std::int64_t first = static_cast<std::int64_t>(1023 + lowestOctave) << pieceBits;
    const std::int64_t place = (std::bit_cast<std::int64_t>(ratio) >> pieceShift) - first;
    if (place < 0 || place >= std::ssize(pieceAt_)) return std::nullopt;
    std::int16_t& at = pieceAt_[static_cast<std::size_t>(place)];
    const double low = std::bit_cast<double>((place + first) << pieceShift);
    const double high = std::bit_cast<double>((place + first + 1) << pieceShift);
    const double middle = (low + high) / 2, half = (high - low) / 2;
    if (at <= 0) {
        if (--at > -worthIt) return std::nullopt;
        pieces_.push_back(made(middle, half));
        at = static_cast<std::int16_t>(pieces_.size());
    }
    const Piece& c = pieces_[static_cast<std::size_t>(at - 1)];
    const double x = (ratio - middle) / half, square = x * x;
    double even = c[nodes - 2], odd = c[nodes - 1];
    for (std::size_t i = nodes - 2; i > 0; i -= 2) {
        even = even * square + c[i - 2];
        odd = odd * square + c[i - 1];
    }
    return even + odd * x;
}

std::shared_ptr<BaselineTable> baselineTableOf(const BaselineModel& model) {
    thread_local std::array<std::shared_ptr<BaselineTable>, 16> tables;
    thread_local std::size_t oldest = 0;
    for (const auto& table : tables)
        if (table && table->model() == model) return table;
    auto& table = tables[oldest];
    oldest = (oldest + 1) % tables.size();
    return table = std::make_shared<BaselineTable>(model);
}

} // namespace metrisk
