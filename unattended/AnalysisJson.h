// An analysis as one JSON object: every field by its name, as show prints it and convert reads it.
#pragma once

#include "unattended/AnalysisRun.h"
#include "unattended/Json.h"

#include <string>
#include <string_view>

namespace metrisk {

/// Every field. The row of the measuring parameter's bias is computed: a file holds none.
Json fieldsJson(AnalysisRun& run);
/// {"file", "status", "messages"} and every field.
Json analysisJson(const std::string& file, AnalysisRun& run);

/// Puts the row of the bias into the table that is shown.
void computeBiasRow(AnalysisRun& run);

/// Whether the content of a file is JSON rather than an analysis.
bool looksLikeJson(std::string_view content);

/// Puts the fields that are named into the record, but for those of a running program. What is wrong with
/// them: no field, another kind or number of values, a text that no file holds; empty if nothing is.
std::string putAnalysisJson(Analysis& record, const Json& object);

/// Puts the fields of a JSON text into the record, which is then as its file would be read. False where they
/// are wrong, which has been told; the record is of no use then.
bool takeJson(AnalysisRun& run, const std::string& content);

} // namespace metrisk
