// Where reports are printed, and what they are measured by on the way there.
#pragma once

#include "desk/files/ReportFiles.h"
#include "reports/PagedDocument.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace metrisk {

class ReportPrinter {
  public:
    /// Composes the pages for a paper by the texts' measures; none if that failed.
    using Composer =
        std::function<std::optional<PagedReport>(DrawingSurface& metrics, const PageSetup& page)>;

    virtual ~ReportPrinter() = default;

    /// Something can be printed on.
    virtual bool isThere() = 0;
    /// The families of its fonts, sorted.
    virtual std::vector<std::string> fonts() = 0;
    /// The system's dialog for printer and paper.
    virtual void setUp() = 0;
    /// Its paper, with margins of an inch.
    virtual PageSetup page() = 0;
    /// A page on the screen.
    virtual std::shared_ptr<DrawingSurface> metrics(const PageSetup& page) = 0;
    /// Prints where and how the user says. False if it could not; a user who thinks better of it is no
    /// failure.
    virtual bool print(const Composer& compose, std::string_view title) = 0;
    /// For files.
    virtual const ReportPress& press() = 0;
};

} // namespace metrisk
