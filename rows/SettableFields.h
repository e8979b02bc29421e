// Which fields of a record may be set by their names, and what follows from those that are.
#pragma once

#include "record/FieldAccess.h"
#include "rows/Entries.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace metrisk {

struct Regional;
class UnitFactors;

/// The entry that the field is the value of; none for a plain field.
std::optional<Entry> entryOfField(const NamedField& field);

/// Why the field is not to be set: "SU_Sigma is computed". Empty if it is an entry's or a plain one.
std::string notSettable(const NamedField& field);

/// Those that are no entry's, in the order of the record.
std::vector<const NamedField*> plainFields();

/// The entries that would put the same as this plain field.
std::span<const Entry> rivalsOf(const NamedField& field);

/// What the boxes of these plain fields derive: offsets of their parts, factors of tolerance units, the
/// reference ratio. Raises RowFault where a rule refuses.
void followFields(Analysis& record, const std::vector<FieldPlace>& set, const UnitFactors& units,
                  const Regional& regional);

} // namespace metrisk
