#include "desk/reports/ReportDesk.h"

#include "desk/kit/Desktop.h"
#include "desk/kit/Message.h"
#include "desk/reports/PreviewScreen.h"
#include "desk/reports/PrintDialogScreen.h"
#include "desk/reports/ReportOptionsScreen.h"
#include "desk/reports/ReportPrinter.h"
#include "persistence/SettingKeys.h"
#include "reports/PagedDocument.h"
#include "reports/TableReport.h"

namespace metrisk {

namespace {

constexpr Message printerError{
    "Metrisk cannot access your printer.\nThis usually means that you haven't selected\n"
    "a printer from the Windows Control Panel.",
    "Printer Error"};
constexpr Message notPrinted{"The report could not be printed.", "Printer Error"};

ReportPrinter* printerOf(Session& session) {
    ReportPrinter* printer = session.desktop ? session.desktop->printer : nullptr;
    if (printer && printer->isThere()) return printer;
    tell(session.ui, printerError);
    session.record.AbortFlag = true;
    return nullptr;
}

} // namespace

ReportDesk::ReportDesk(Session& session) : session_(session) {
    selection.Report_FontName = session.settings.read(reportSettings::defaultFont);
}

void ReportDesk::openPrintDialog() {
    if (!printerOf(session_)) return;
    PrintDialogScreen dialog(session_, *this);
    session_.ui.run(dialog);
}

void ReportDesk::openOptions() {
    bool print = false;
    {
        ReportOptionsScreen options(session_);
        session_.ui.run(options);
        print = options.printWanted();
    }
    if (print) openPrintDialog();
}

void ReportDesk::preview(Session& session, const char* origin) {
    if (!session.desktop || !session.desktop->printer) return;
    ReportSelection asked = selection;
    asked.Report_Origin = origin;
    asked.Report_Preview = true;
    PreviewScreen screen(session, asked);
    if (screen.compose()) session.ui.run(screen);
    session.record.AbortFlag = false;
}

bool ReportDesk::print(Session& session, const char* origin) {
    ReportPrinter* printer = printerOf(session);
    if (!printer) return false;
    ReportSelection asked = selection;
    asked.Report_Origin = origin;
    asked.Report_Preview = false;
    bool composed = true;
    const bool printed = printer->print(
        [&](DrawingSurface& metrics, const PageSetup& page) {
            const WaitPointer wait(session.ui);
            auto pages = reportPages(session, asked, page, metrics, true);
            composed = pages.has_value();
            return pages;
        },
        reportTitle(session.record));
    if (!composed) session.record.AbortFlag = true;
    if (printed || !composed) return composed;
    tell(session.ui, notPrinted);
    return false;
}

bool ReportDesk::printTable(const TableReport& table) {
    ReportPrinter* printer = session_.desktop ? session_.desktop->printer : nullptr;
    if (!printer || !printer->isThere()) return false;
    return printer->print(
        [&table](DrawingSurface& metrics, const PageSetup& page) -> std::optional<PagedReport> {
            PagedDocument document(metrics, page);
            composeTable(table, document);
            return document.report();
        },
        table.title);
}

std::optional<std::string> ReportDesk::tablePdf(const TableReport& table) {
    ReportPrinter* printer = session_.desktop ? session_.desktop->printer : nullptr;
    if (!printer) return std::nullopt;
    const auto metrics = printer->press().metrics(tablePage());
    PagedDocument document(*metrics, tablePage());
    composeTable(table, document);
    return printer->press().pdf(document.report(), table.title, session_.clock.now());
}

} // namespace metrisk
