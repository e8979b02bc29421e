// The print preview, screen Print_SS: the pages of a report, to be copied and exported.
#pragma once

#include "desk/kit/Worksheet.h"
#include "reports/PagedDocument.h"
#include "reports/ReportSelection.h"

#include <memory>

namespace metrisk {

struct Session;

class PreviewScreen final : public Worksheet {
  public:
    Choice cbo_Zoom{*this, "cbo_Zoom", "Size of the page on the screen"};
    PushButton cmd_Previous{*this, "cmd_Previous", "P&revious", "The page before"};
    Label pnl_Status{*this, "pnl_Status"};
    PushButton cmd_Next{*this, "cmd_Next", "Ne&xt", "The page after"};
    Label pnl_Message{*this, "pnl_Message", "Please wait while the export is in-progress."};
    PictureArea vs_Print{*this, "vs_Print", "", ""};

    PreviewScreen(Session& session, const ReportSelection& selection);

    void refresh() override;

    /// Composes the pages; false if that failed, which has been told. AbortFlag is set then.
    bool compose();

  private:
    Session& session_;
    ReportSelection selection_;
    std::shared_ptr<const PagedReport> pages_;
    std::size_t page_ = 0;
    double roomWidth_ = 0;

    void showPage(std::size_t page);
    void zoomBy(int steps);
    /// Offers that kind of file first; a name without an extension gets that one.
    void exportReport(int filter, const char* extension);
    std::vector<MenuItem> pageItems();
};

} // namespace metrisk
