// The functions of SQL, whatever the engine: values in, one value out.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace metrisk {

/// NULL, numbers and texts of UTF-8, which live as long as the call; of any other type only that it is one.
struct SqlBlob {};
using SqlValue = std::variant<std::monostate, double, std::int64_t, std::string_view, SqlBlob>;

/// NULL, a truth, a finite number or a text.
using SqlResult = std::variant<std::monostate, bool, double, std::string>;

/// What makes a call an error; a test that is refused is none, and its result is NULL.
struct SqlFault {
    std::string text;
};

struct SqlFunction {
    const char* name;
    int arguments; // -1: any number of them
    /// Raises SqlFault, and std::bad_alloc. May be called from any thread.
    SqlResult (*work)(std::span<const SqlValue> values);
};

/// metrisk_risk and the others. Of those with a fixed number of arguments the result is NULL where one is.
std::span<const SqlFunction> sqlFunctions();

} // namespace metrisk
