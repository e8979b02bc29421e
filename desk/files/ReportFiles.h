// A report as the bytes of a file, in the format of its extension.
#pragma once

#include "desk/kit/Session.h"
#include "reports/PagedDocument.h"
#include "reports/ReportPress.h"
#include "reports/ReportSelection.h"
#include "reports/RichTextDocument.h"

#include <filesystem>
#include <optional>

namespace metrisk {

/// "doc", "htm" and "pdf", in letters of any case; none for any other.
ReportFormat reportFormatOf(const std::filesystem::path& path);

/// The title of a report: the name of the analysis file, and what it is.
std::string reportTitle(const Analysis& record);

/// The whole file that would go to `path`. None if the composition failed, which has been told. Raises
/// std::runtime_error where the press does.
std::optional<std::string> reportBytes(const Session& session, const ReportSelection& selection,
                                       const PageSetup& page, const std::filesystem::path& path,
                                       const ReportPress& press);

/// The pages as the window shows and prints them; `direct` is a print without preview.
std::optional<PagedReport> reportPages(const Session& session, const ReportSelection& selection,
                                       const PageSetup& page, DrawingSurface& metrics, bool direct);

/// The paper with the margins that the selection asks for.
PageSetup withMargins(PageSetup page, const ReportSelection& selection);

} // namespace metrisk
