// CREATE EXTENSION metrisk: the functions in PostgreSQL.
//
// An error of the server leaves by longjmp, which runs no destructor: whatever may raise one stands in
// functions without C++ objects, and what computes catches all that C++ may throw.
#include "sql/SqlFunctions.h"

#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <vector>

// The server finds these by name; older ones leave it to the compiler what is seen.
#define PGDLLEXPORT __attribute__((visibility("default")))

extern "C" {
#include "postgres.h"

#include "catalog/pg_type.h"
#include "fmgr.h"
#include "mb/pg_wchar.h"
#include "miscadmin.h"
#include "utils/builtins.h"
#include "utils/fmgrprotos.h"

PG_MODULE_MAGIC;
}

namespace {

enum class Kind { Null, Number, Whole, Text, Other };

/// Its text is of UTF-8 and of the server's memory.
struct Argument {
    Kind kind;
    double number;
    std::int64_t whole;
    const char* text;
    std::size_t size;
};

struct Outcome {
    Kind kind;
    double number;
    char* text; // of malloc: a result, or what is wrong
    bool fault, memory;
};

char* kept(const std::string& text) {
    auto* copy = static_cast<char*>(std::malloc(text.size() + 1));
    if (copy) std::memcpy(copy, text.c_str(), text.size() + 1);
    return copy;
}

metrisk::SqlValue valueOf(const Argument& argument) {
    switch (argument.kind) {
    case Kind::Null: return {};
    case Kind::Number: return argument.number;
    case Kind::Whole: return argument.whole;
    case Kind::Text: return std::string_view(argument.text, argument.size);
    case Kind::Other: break;
    }
    return metrisk::SqlBlob{};
}

metrisk::SqlResult worked(const char* name, const Argument* arguments, std::size_t count) {
    std::vector<metrisk::SqlValue> values;
    values.reserve(count);
    for (std::size_t i = 0; i < count; ++i) values.push_back(valueOf(arguments[i]));
    for (const metrisk::SqlFunction& function : metrisk::sqlFunctions())
        if (std::strcmp(function.name, name) == 0) return function.work(values);
    throw metrisk::SqlFault{"no such function"};
}

Outcome withText(Kind kind, bool fault, const std::string& text) {
    char* const copy = kept(text);
    return {kind, 0, copy, fault, copy == nullptr};
}

/// Throws nothing.
Outcome computed(const char* name, const Argument* arguments, std::size_t count) {
    try {
        const metrisk::SqlResult result = worked(name, arguments, count);
        if (const auto* number = std::get_if<double>(&result))
            return {Kind::Number, *number, nullptr, false, false};
        if (const auto* truth = std::get_if<bool>(&result))
            return {Kind::Number, static_cast<double>(*truth), nullptr, false, false};
        if (const auto* text = std::get_if<std::string>(&result)) return withText(Kind::Text, false, *text);
        return {Kind::Null, 0, nullptr, false, false};
    } catch (const metrisk::SqlFault& fault) {
        return withText(Kind::Null, true, fault.text);
    } catch (const std::bad_alloc&) {
        return {Kind::Null, 0, nullptr, false, true};
    } catch (const std::exception& fault) {
        return withText(Kind::Null, true, fault.what());
    }
}

void takeText(Argument& argument, const char* text, std::size_t size) {
    argument.kind = Kind::Text;
    argument.text = pg_server_to_any(text, static_cast<int>(size), PG_UTF8);
    argument.size = argument.text == text ? size : std::strlen(argument.text);
}

void take(Argument& argument, Oid type, Datum datum) {
    switch (type) {
    case FLOAT8OID: argument.kind = Kind::Number, argument.number = DatumGetFloat8(datum); break;
    case FLOAT4OID:
        argument.kind = Kind::Number, argument.number = static_cast<double>(DatumGetFloat4(datum));
        break;
    case NUMERICOID:
        argument.kind = Kind::Number;
        argument.number = DatumGetFloat8(DirectFunctionCall1(numeric_float8, datum));
        break;
    case INT2OID: argument.kind = Kind::Whole, argument.whole = DatumGetInt16(datum); break;
    case INT4OID: argument.kind = Kind::Whole, argument.whole = DatumGetInt32(datum); break;
    case INT8OID: argument.kind = Kind::Whole, argument.whole = DatumGetInt64(datum); break;
    case UNKNOWNOID: takeText(argument, DatumGetCString(datum), std::strlen(DatumGetCString(datum))); break;
    case TEXTOID:
    case VARCHAROID:
    case BPCHAROID: {
        text* const words = DatumGetTextPP(datum);
        takeText(argument, VARDATA_ANY(words), VARSIZE_ANY_EXHDR(words));
        break;
    }
    default: argument.kind = Kind::Other;
    }
}

enum class Returned { Number, Text };

Datum call(FunctionCallInfo fcinfo, const char* name, Returned returned) {
    CHECK_FOR_INTERRUPTS();
    if (get_fn_expr_variadic(fcinfo->flinfo))
        ereport(ERROR, (errcode(ERRCODE_FEATURE_NOT_SUPPORTED), errmsg("%s: an array of entries", name)));
    const auto count = static_cast<std::size_t>(PG_NARGS());
    auto* arguments = static_cast<Argument*>(palloc0(sizeof(Argument) * (count + 1)));
    for (std::size_t i = 0; i < count; ++i)
        if (!PG_ARGISNULL(i))
            take(arguments[i], get_fn_expr_argtype(fcinfo->flinfo, static_cast<int>(i)), PG_GETARG_DATUM(i));

    const Outcome outcome = computed(name, arguments, count);
    if (outcome.memory) ereport(ERROR, (errcode(ERRCODE_OUT_OF_MEMORY), errmsg("%s: out of memory", name)));
    char* words = nullptr;
    if (outcome.text) {
        words = pstrdup(outcome.text);
        std::free(outcome.text);
        words = pg_any_to_server(words, static_cast<int>(std::strlen(words)), PG_UTF8);
    }
    if (outcome.fault)
        ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE), errmsg("%s: %s", name, words)));
    if (outcome.kind == Kind::Null) PG_RETURN_NULL();
    if (returned == Returned::Text) {
        if (outcome.kind == Kind::Number) words = psprintf("%.17g", outcome.number);
        PG_RETURN_TEXT_P(cstring_to_text(words));
    }
    if (outcome.kind == Kind::Text)
        ereport(ERROR, (errcode(ERRCODE_DATATYPE_MISMATCH),
                        errmsg("%s: the figure is a text; see metrisk_risk_text", name)));
    PG_RETURN_FLOAT8(outcome.number);
}

} // namespace

// Each under a name of its own, with what it is called and what it returns.
#define METRISK_FUNCTION(symbol, name, returned)                                                             \
    extern "C" {                                                                                             \
    PG_FUNCTION_INFO_V1(symbol);                                                                             \
    PGDLLEXPORT Datum symbol(PG_FUNCTION_ARGS) {                                                             \
        return call(fcinfo, name, returned);                                                                 \
    }                                                                                                        \
    }

METRISK_FUNCTION(metrisk_pg_risk, "metrisk_risk", Returned::Number)
METRISK_FUNCTION(metrisk_pg_risk_text, "metrisk_risk", Returned::Text)
METRISK_FUNCTION(metrisk_pg_risks, "metrisk_risks", Returned::Text)
METRISK_FUNCTION(metrisk_pg_message, "metrisk_message", Returned::Text)
METRISK_FUNCTION(metrisk_pg_fa, "metrisk_fa", Returned::Number)
METRISK_FUNCTION(metrisk_pg_fr, "metrisk_fr", Returned::Number)
METRISK_FUNCTION(metrisk_pg_tur, "metrisk_tur", Returned::Number)
METRISK_FUNCTION(metrisk_pg_guardband, "metrisk_guardband", Returned::Number)
METRISK_FUNCTION(metrisk_pg_conformance, "metrisk_conformance", Returned::Number)
METRISK_FUNCTION(metrisk_pg_version, "metrisk_version", Returned::Text)
