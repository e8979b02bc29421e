// Gives an element of the record a value that differs from the one it has.
#pragma once

#include "base/Flag.h"

#include <string>
#include <type_traits>

namespace metrisk::testing {

struct Change {
    int number = 7;
    template <class T>
    void operator()(T& element) const {
        if constexpr (std::is_same_v<T, std::string>)
            element = "text " + std::to_string(number);
        else if constexpr (std::is_same_v<T, Flag> || std::is_same_v<T, bool>)
            element = !element;
        else
            element = static_cast<T>(element + number + 0.25);
    }
};

} // namespace metrisk::testing
