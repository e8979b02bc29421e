// What turns pages and pictures of a report into the bytes of files.
#pragma once

#include "base/Clock.h"
#include "reports/PagedDocument.h"
#include "reports/RichTextDocument.h"

#include <memory>
#include <string>

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

} // namespace metrisk
