// SELECT load_extension('metrisk'): the functions in SQLite.
#include "sql/SqlFunctions.h"

#include <new>
#include <sqlite3ext.h>
#include <vector>
SQLITE_EXTENSION_INIT1

namespace {

using namespace metrisk;

SqlValue valueOf(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL: return {};
    case SQLITE_FLOAT: return sqlite3_value_double(value);
    case SQLITE_INTEGER: return static_cast<std::int64_t>(sqlite3_value_int64(value));
    case SQLITE_TEXT: break;
    default: return SqlBlob{};
    }
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    if (!bytes) throw std::bad_alloc();
    return std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

void put(sqlite3_context* context, const SqlResult& result) {
    if (const auto* number = std::get_if<double>(&result))
        sqlite3_result_double(context, *number);
    else if (const auto* truth = std::get_if<bool>(&result))
        sqlite3_result_int(context, *truth);
    else if (const auto* text = std::get_if<std::string>(&result))
        sqlite3_result_text(context, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
    else
        sqlite3_result_null(context);
}

/// No exception reaches the engine.
void call(sqlite3_context* context, int count, sqlite3_value** values) {
    const auto& function = *static_cast<const SqlFunction*>(sqlite3_user_data(context));
    try {
        std::vector<SqlValue> taken;
        taken.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) taken.push_back(valueOf(values[i]));
        put(context, function.work(taken));
    } catch (const SqlFault& fault) {
        const std::string text = std::string(function.name) + ": " + fault.text;
        sqlite3_result_error(context, text.data(), static_cast<int>(text.size()));
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& fault) {
        sqlite3_result_error(context, fault.what(), -1);
    }
}

} // namespace

extern "C" __attribute__((visibility("default"))) int
sqlite3_metrisk_init(sqlite3* database, char**, const sqlite3_api_routines* routines) {
    SQLITE_EXTENSION_INIT2(routines)
    for (const SqlFunction& each : sqlFunctions()) {
        const int made = sqlite3_create_function_v2(
            database, each.name, each.arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
            const_cast<SqlFunction*>(&each), call, nullptr, nullptr, nullptr);
        if (made != SQLITE_OK) return made;
    }
    return SQLITE_OK;
}
