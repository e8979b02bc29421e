// A fixed array counted from 1, as the tables and files of an analysis count.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>

namespace metrisk {

/// N elements with the indices 1 to N. An index outside is a programming error and asserts.
template <class T, std::size_t N>
class OneBased {
  public:
    static constexpr int first = 1;
    static constexpr int last = static_cast<int>(N);

    constexpr T& operator[](int i) {
        assert(i >= first && i <= last);
        return items_[static_cast<std::size_t>(i - 1)];
    }
    constexpr const T& operator[](int i) const {
        assert(i >= first && i <= last);
        return items_[static_cast<std::size_t>(i - 1)];
    }

    constexpr auto begin() { return items_.begin(); }
    constexpr auto end() { return items_.end(); }
    constexpr auto begin() const { return items_.begin(); }
    constexpr auto end() const { return items_.end(); }

    constexpr void fill(const T& value) { items_.fill(value); }

    friend constexpr bool operator==(const OneBased&, const OneBased&) = default;

  private:
    std::array<T, N> items_{};
};

} // namespace metrisk
