// The joint probability of the reference case as a function of the accuracy ratio, for one question after
// another.
#pragma once

#include "risk/BaselineModel.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace metrisk {

/// Eighths of the octaves from 1/128 to 16,384, linear in the ratio; in each a polynomial through 12
/// Chebyshev nodes, made once a dozen questions have been asked of it.
///
/// The sum that the joint probability is computed as is an entire function of the ratio and below 4 where the
/// ratio's argument is below 45 degrees. About a piece this sector holds an ellipse with the foci at its ends
/// and a sum of half axes of more than 22 half lengths, so that 12 nodes leave an error below 1e-15 (L. N.
/// Trefethen, Approximation Theory and Approximation Practice, theorem 8.2); the rest of `doubt` is rounding,
/// with a wide margin.
class BaselineTable {
  public:
    /// By how much an answer can be off BaselineModel's.
    static constexpr double doubt = 1e-13;

    explicit BaselineTable(const BaselineModel& model) : model_(model) { pieceAt_.fill(0); }

    const BaselineModel& model() const { return model_; }

    /// None where a piece is not there: outside the octaves, or asked of too seldom. Raises RuntimeFault.
    std::optional<double> joint(double ratio);

  private:
    static constexpr int nodes = 12;
    static constexpr int lowestOctave = -7, octaves = 21;
    static constexpr int pieceBits = 3; // leading bits of the mantissa that tell the piece of an octave
    using Piece = std::array<double, nodes>;

    Piece made(double middle, double half) const;

    BaselineModel model_;
    /// One more than the index of a piece or, negative, how often it has been asked for.
    std::array<std::int16_t, octaves << pieceBits> pieceAt_;
    std::vector<Piece> pieces_; // coefficients of the powers of (ratio - middle)/half
};

/// That of a model. Each thread keeps those of the last sixteen models for which there was none.
std::shared_ptr<BaselineTable> baselineTableOf(const BaselineModel& model);

} // namespace metrisk
