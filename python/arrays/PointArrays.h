// Many test points from arrays: what a row of a table is to `rows`, an element is here.
#pragma once

#include "rows/PointFigures.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

/// An entry of all elements: numbers, of which NaN names nothing, or codes of texts, of which -1 does.
struct EntryArray {
    Entry entry{};
    const double* numbers = nullptr;
    const std::int32_t* codes = nullptr;
    std::span<const std::string> texts{}; // by their codes
    bool single = false;                  // one value for all elements
};

/// Where the answers go; columns in the order of what is wanted. Each has room for all elements.
struct AnswerArrays {
    std::vector<double*> figures;   // flags as 0 and 1; NaN where there is none
    std::uint8_t* status = nullptr; // as PointStatus
};

struct PointMessage {
    std::size_t element;
    std::string text;
};

/// The texts of a column; their place is the figure in its array.
std::span<const std::string_view> textsOfColumn(std::string_view column);

/// The elements from `first` up to `last`, each a copy of the template into which its entries are put; the
/// figures are those that `rows` gives, to the bit. Messages of those that are not ok are added in order.
/// Ends soon after a stop has been asked for. Does not throw but for memory.
void answerPoints(const TestPoint& base, std::span<const EntryArray> entries, const Want& want,
                  CountsAs countsAs, std::size_t first, std::size_t last, const AnswerArrays& answers,
                  std::vector<PointMessage>& messages, const std::stop_token& stop = {});

} // namespace metrisk
