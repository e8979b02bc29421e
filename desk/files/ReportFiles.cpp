#include "desk/files/ReportFiles.h"

#include "base/Text.h"
#include "desk/files/ComposeReport.h"
#include "reports/HtmlDocument.h"

namespace metrisk {

namespace {

constexpr double twipsPerInch = 1440;

template <class Document>
std::optional<std::string> flowing(const Session& session, const ReportSelection& selection,
                                   const PageSetup& page, const std::filesystem::path& path,
                                   const ReportPress& press) {
    Document document(page, reportTitle(session.record),
                      [&press](const ReportPicture& picture, int width, int height) {
                          return press.png(picture, width, height);
                      });
    document.ExportFile = path.string();
    if (!ComposeReport(session, selection, document, true)) return {};
    return document.bytes();
}

} // namespace

ReportFormat reportFormatOf(const std::filesystem::path& path) {
    const std::string extension = path.extension().string();
    if (equalCaseBlind(extension, ".doc")) return ReportFormat::RichText;
    if (equalCaseBlind(extension, ".htm")) return ReportFormat::Html;
    if (equalCaseBlind(extension, ".pdf")) return ReportFormat::Pdf;
    return ReportFormat::None;
}

std::string reportTitle(const Analysis& record) {
    return std::filesystem::path(record.AnalysisFileName).stem().string() +
           " - Measurement Decision Risk Analysis";
}

std::optional<std::string> reportBytes(const Session& session, const ReportSelection& selection,
                                       const PageSetup& paper, const std::filesystem::path& path,
                                       const ReportPress& press) {
    const PageSetup page = withMargins(paper, selection);
    switch (reportFormatOf(path)) {
    case ReportFormat::RichText: return flowing<RichTextDocument>(session, selection, page, path, press);
    case ReportFormat::Html: return flowing<HtmlDocument>(session, selection, page, path, press);
    case ReportFormat::Pdf: {
        const auto metrics = press.metrics(page);
        const auto pages = reportPages(session, selection, paper, *metrics, false);
        if (!pages) return {};
        return press.pdf(*pages, reportTitle(session.record), session.clock.now());
    }
    case ReportFormat::None: break;
    }
    return {};
}

std::optional<PagedReport> reportPages(const Session& session, const ReportSelection& selection,
                                       const PageSetup& page, DrawingSurface& metrics, bool direct) {
    PagedDocument document(metrics, withMargins(page, selection));
    if (!ComposeReport(session, selection, document, !direct)) return {};
    return document.report();
}

PageSetup withMargins(PageSetup page, const ReportSelection& selection) {
    page.left = selection.Report_LeftMargin * twipsPerInch;
    page.top = selection.Report_TopMargin * twipsPerInch;
    return page;
}

} // namespace metrisk
