// Pages and pictures of reports by Cairo and Pango.
#pragma once

#include "reports/ReportPress.h"

namespace metrisk {

class CairoPress final : public ReportPress {
  public:
    std::shared_ptr<DrawingSurface> metrics(const PageSetup& page) const override;
    std::string pdf(const PagedReport& report, const std::string& title,
                    const Moment& created) const override;
    std::string png(const ReportPicture& picture, int width, int height) const override;
};

} // namespace metrisk
