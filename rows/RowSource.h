// Whole records from a file or a pipe, in blocks.
#pragma once

#include "rows/RowTable.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace metrisk {

inline constexpr std::size_t rowsOfBlock = 4096;
inline constexpr std::size_t bytesOfBlock = std::size_t{1} << 20;

/// Input that cannot be read on; the text is the system's cause.
struct ReadFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Bytes of a descriptor that is not owned, in front of which others may stand.
class RowInput {
  public:
    RowInput(int descriptor, std::string front = {}) : descriptor_(descriptor), bytes_(std::move(front)) {}

    std::string_view bytes() const { return bytes_; }
    bool atEnd() const { return atEnd_; }
    /// False at the end. Raises ReadFailure.
    bool readMore();
    /// Whether more comes within a moment.
    bool waits() const;
    void drop(std::size_t count) { bytes_.erase(0, count); }
    /// What is there, to be given to another.
    std::string take() { return std::move(bytes_); }

  private:
    int descriptor_;
    std::string bytes_;
    bool atEnd_ = false;
};

class RowSource {
  public:
    RowSource(RowInput& input, const RowTable& table) : input_(input), table_(table) {}

    /// Up to so many records with their line ends: fewer where one has been waited for. False at the end.
    /// Raises ReadFailure.
    bool next(std::string& block, std::size_t mostRows = rowsOfBlock);

  private:
    /// Past the line end of a row of which the rest is not read.
    void skipLine();

    RowInput& input_;
    const RowTable& table_;
};

} // namespace metrisk
