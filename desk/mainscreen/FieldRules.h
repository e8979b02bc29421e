// The field rules of the main screen's boxes, one routine a kind of box.
//
// Each is called only for a changed text, while EntryBoxChanged is set; `last` is the text before the
// entry. A refused entry leaves the record alone. They raise RuntimeFault on a numeric fault, with
// the record in any state: the caller puts it back.
#pragma once

#include "desk/kit/FieldResult.h"

#include <string>

namespace metrisk {

struct Analysis;
struct Session;
struct SubjectSide;

FieldResult commitMode(Session& session, const std::string& text, const std::string& last);

/// The side that the tolerance kind lacks takes the physical limit.
FieldResult commitLimit(Session& session, const SubjectSide& side, const std::string& text,
                        const std::string& last);

FieldResult commitPctInTol(Session& session, const std::string& text);
FieldResult commitMTEPctInTol(Session& session, const std::string& text);

/// The boxes of the measuring row; entered by uncertainty they hold the expanded uncertainty, the
/// standard uncertainty and the degrees of freedom.
enum class MeasuringBox { Offset, Fixed, PctOfReading };
FieldResult commitMeasuring(Session& session, MeasuringBox box, const std::string& text);

/// Identification and measuring units: the text goes to its field.
void commitText(Session& session, std::string Analysis::*field, const std::string& text);
/// The texts' form in the record: a double quote, which the file cannot hold, becomes a double prime.
std::string entryText(std::string text);

} // namespace metrisk
