// A report as the bytes of a file, in the format of its extension.
#pragma once

#include "desk/kit/Session.h"
#include "desk/reports/ReportSelection.h"
#include "reports/PagedDocument.h"
#include "reports/RichTextDocument.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace metrisk {

/// What is drawn outside the core: pages as a PDF, pictures as PNG. They raise std::runtime_error if they
/// cannot.
class ReportPress {
  public:
    virtual ~ReportPress() = default;

    /// A surface of a page of the PDF, to measure texts by.
    virtual std::shared_ptr<DrawingSurface> metrics(const PageSetup& page) const = 0;
    virtual std::string pdf(const PagedReport& report, const std::string& title,
                            const Moment& created) const = 0;
    virtual std::string png(const ReportPicture& picture, int width, int height) const = 0;
};

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
