#include "desk/reports/PreviewScreen.h"

#include "base/AtomicFile.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/links/RunMenu.h"
#include "desk/reports/ReportPrinter.h"
#include "drawing/SubSurface.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <stdexcept>

namespace metrisk {

namespace {

constexpr double pixelsPerTwip = 96.0 / 1440;
constexpr Colour desk{128, 128, 128};

/// The first two follow the room there is.
struct Zoom {
    const char* name;
    double factor;
};
constexpr Zoom zooms[] = {{"Whole Page", 0}, {"50%", 0.5},  {"75%", 0.75},
                          {"100%", 1},       {"150%", 1.5}, {"200%", 2}};

constexpr int wholeSize = 3;

constexpr const char* exportTitle = "Save File";
constexpr const char* exportFilter =
    "Rich Text Files (*.doc)|*.doc|HTML Files (*.htm)|*.htm|PDF Files (*.pdf)|*.pdf";
constexpr int richTextFilter = 1, pdfFilter = 3;
constexpr Message notRegistered{"The Report Type is not registered.", "No Report Available"};

/// The page in the middle of a surface of any form.
void paintPage(DrawingSurface& surface, const PagedReport& report, std::size_t page) {
    surface.BackColor = desk;
    surface.Cls();
    const double width = surface.deviceWidth();
    const double height = surface.deviceHeight();
    const double share = std::min(width / report.setup.width, height / report.setup.height);
    const double across = report.setup.width * share;
    const double down = report.setup.height * share;
    SubSurface sheet(surface, {(width - across) / 2, (height - down) / 2}, across, down);
    drawPage(sheet, report, page);
}

} // namespace

PreviewScreen::PreviewScreen(Session& session, const ReportSelection& selection)
    : Worksheet("Print_SS", "Print Preview", "reports"), session_(session), selection_(selection) {
    for (const Zoom& zoom : zooms) cbo_Zoom.items.emplace_back(zoom.name);
    cbo_Zoom.index = wholeSize;
    cbo_Zoom.chosen = [this](int index) { cbo_Zoom.index = index; };
    cmd_Previous.clicked = [this](bool) { showPage(page_ - 1); };
    cmd_Next.clicked = [this](bool) { showPage(page_ + 1); };
    pnl_Message.visible = false;
    menus = {
        {.control = "mnu_Exit", .caption = "&Close", .run = [this] { close(Way::Ok); }},
        {.control = "mnu_Copy",
         .caption = "Cop&y",
         .run = [this] { session_.ui.copyPicture(vs_Print); },
         .shortcut = "Ctrl+C"},
        {.control = "mnu_Export",
         .caption = "&Export in MS &Word Format",
         .run = [this] { exportReport(richTextFilter, ".doc"); },
         .shortcut = "Ctrl+S",
         .toolTip = "Save the report as Rich Text (*.doc), HTML (*.htm) or PDF (*.pdf)"},
        {.control = "mnu_SavePdf",
         .caption = "&Save as PDF...",
         .run = [this] { exportReport(pdfFilter, ".pdf"); },
         .toolTip = "Save the report as it is printed"},
        {.control = "mnu_Page", .caption = "&Page", .items = pageItems()},
        runMenu(session_),
    };
}

std::vector<MenuItem> PreviewScreen::pageItems() {
    return {
        {.control = "mnu_Page_Previous",
         .caption = "&Previous",
         .run = [this] { showPage(page_ - 1); },
         .shortcut = "PgUp"},
        {.control = "mnu_Page_Next",
         .caption = "&Next",
         .run = [this] { showPage(page_ + 1); },
         .shortcut = "PgDown"},
        {.control = "mnu_Page_First",
         .caption = "&First",
         .run = [this] { showPage(0); },
         .shortcut = "Ctrl+Home"},
        {.control = "mnu_Page_Last",
         .caption = "&Last",
         .run =
             [this] {
                 if (pages_) showPage(pages_->pages.size() - 1);
             },
         .shortcut = "Ctrl+End",
         .separatorAfter = true},
        {.control = "mnu_Page_Larger",
         .caption = "Zoom &In",
         .run = [this] { zoomBy(1); },
         .shortcut = "Ctrl++"},
        {.control = "mnu_Page_Smaller",
         .caption = "Zoom &Out",
         .run = [this] { zoomBy(-1); },
         .shortcut = "Ctrl+-"},
    };
}

bool PreviewScreen::compose() {
    const WaitPointer wait(session_.ui);
    ReportPrinter& printer = *session_.desktop->printer;
    const PageSetup page = printer.page();
    auto pages = reportPages(session_, selection_, page, *printer.metrics(page), false);
    session_.record.AbortFlag = !pages.has_value();
    if (!pages) return false;
    pages_ = std::make_shared<const PagedReport>(std::move(*pages));
    showPage(0);
    refresh();
    return true;
}

void PreviewScreen::showPage(std::size_t page) {
    if (!pages_ || page >= pages_->pages.size()) return;
    page_ = page;
    vs_Print.draw([pages = pages_, page](DrawingSurface& surface) { paintPage(surface, *pages, page); });
}

void PreviewScreen::zoomBy(int steps) {
    cbo_Zoom.index = std::clamp(cbo_Zoom.index + steps, 0, static_cast<int>(std::size(zooms)) - 1);
}

void PreviewScreen::refresh() {
    if (!pages_) return;
    const std::string place =
        "Page " + std::to_string(page_ + 1) + " of " + std::to_string(pages_->pages.size());
    pnl_Status.text = place;
    vs_Print.text = place + " of the report";
    const bool first = page_ == 0;
    const bool last = page_ + 1 == pages_->pages.size();
    cmd_Previous.allow(!first, "This is the first page");
    cmd_Next.allow(!last, "This is the last page");
    for (const char* item : {"mnu_Page_Previous", "mnu_Page_First"}) findItem(menus, item)->off = first;
    for (const char* item : {"mnu_Page_Next", "mnu_Page_Last"}) findItem(menus, item)->off = last;
    const double factor = zooms[cbo_Zoom.index].factor;
    vs_Print.leastWidth = static_cast<int>(std::lround(pages_->setup.width * pixelsPerTwip * factor));
    vs_Print.leastHeight = static_cast<int>(std::lround(pages_->setup.height * pixelsPerTwip * factor));
}

void PreviewScreen::exportReport(int filter, const char* extension) {
    namespace fs = std::filesystem;
    const fs::path analysis = session_.record.AnalysisFileName;
    const auto path =
        session_.desktop->files.chooseToSave({.title = exportTitle,
                                              .filter = exportFilter,
                                              .filterIndex = filter,
                                              .initialName = analysis.stem().string() + extension,
                                              .initialFolder = analysis.parent_path().string()});
    if (!path) return;
    fs::path target = *path;
    if (target.extension().empty()) {
        target += extension;
        if (!mayReplace(session_.ui, target.string(), exportTitle)) return;
    }
    if (reportFormatOf(target) == ReportFormat::None) {
        tell(session_.ui, notRegistered);
        return;
    }
    pnl_Message.visible = true;
    session_.ui.refresh(*this);
    session_.ui.yield();
    std::string failure;
    std::optional<std::string> bytes;
    {
        const WaitPointer wait(session_.ui);
        ReportPrinter& printer = *session_.desktop->printer;
        try {
            bytes = reportBytes(session_, selection_, printer.page(), target, printer.press());
            if (bytes && !replaceFile(target, *bytes))
                failure = "The file " + target.string() + " cannot be written.";
        } catch (const std::runtime_error& error) {
            failure = error.what();
        }
    }
    pnl_Message.visible = false;
    session_.ui.refresh(*this);
    if (failure.empty() && bytes) {
        failure = session_.desktop->programs.openDocument(target.string());
        if (!failure.empty()) failure = "The file " + target.string() + " was written.\n" + failure;
    }
    if (!failure.empty()) tell(session_.ui, {failure, exportTitle});
}

} // namespace metrisk
