// Fields of the record by name: what kind of value each holds, and putting one in.
#pragma once

#include "record/Field.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace metrisk {

struct Analysis;

enum class FieldKind { Number, Whole, Flag, Text };

/// The indices of one dimension of an array field, as the record counts them.
struct FieldRange {
    int first, last; // none negative

    std::size_t size() const { return static_cast<std::size_t>(last) + 1 - static_cast<std::size_t>(first); }
};

struct NamedField {
    Field field;
    FieldKind kind;                   // of the field, or of the elements of an array
    std::vector<FieldRange> ranges{}; // empty where it is no array

    /// "SU_Mode", "Stat_Sample[1..200][1..2]".
    std::string shape() const;
};

/// All of them, in the order of the record.
std::span<const NamedField> namedFields();
/// By its exact name; null if there is none.
const NamedField* fieldNamed(std::string_view name);

/// A field, or an element of an array.
struct FieldPlace {
    const NamedField* of;
    std::vector<int> index{};

    /// As it is written: "Stat_Sample[3][1]".
    std::string name() const;
};

/// What a name and its indices say; the indices are not judged. None for a text of another form, or a name
/// that is no field's.
std::optional<FieldPlace> fieldPlaceOf(std::string_view text);
/// Each dimension has an index, which lies in its range.
bool isElement(const FieldPlace& place);

/// A whole number is held as a double, too.
using FieldValue = std::variant<bool, double, std::string>;

/// Puts the value into the element. False where it is of another kind, or no such whole number: the record is
/// as before then. `place` must be an element.
bool putField(Analysis& record, const FieldPlace& place, const FieldValue& value);
/// What stands in the element.
FieldValue fieldValue(const Analysis& record, const FieldPlace& place);

} // namespace metrisk
