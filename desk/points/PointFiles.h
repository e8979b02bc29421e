// Tables of test points, and templates for them, from and to files.
#pragma once

#include "desk/points/PointSheet.h"
#include "record/Analysis.h"

#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

class Talk;
struct Session;

inline constexpr const char* tableFilter =
    "Tables (*.csv)|*.csv|Tables parted by tabs (*.tsv)|*.tsv|All Files (*)|*";

/// By the end of its name.
bool isTable(std::string_view path);

/// Raises std::runtime_error with the cause.
PointSheet readTable(const std::string& path);
/// False where that failed, which has been told; the file is as it was then.
bool writeTable(Talk& ui, const std::string& path, std::string_view text);

/// None where it cannot be read as an analysis.
std::optional<Analysis> readTemplate(Session& session, const std::string& path);

} // namespace metrisk
