// Reports on paper, by Qt; their files by Cairo.
#pragma once

#include "desk/reports/ReportPrinter.h"
#include "files/CairoPress.h"

class QPrinter;
class QWidget;

namespace metrisk {

class QtReportPrinter final : public ReportPrinter {
  public:
    explicit QtReportPrinter(QWidget* mainWindow);
    ~QtReportPrinter() override;

    bool isThere() override;
    std::vector<std::string> fonts() override;
    void setUp() override;
    PageSetup page() override;
    std::shared_ptr<DrawingSurface> metrics(const PageSetup& page) override;
    bool print(const Composer& compose, std::string_view title) override;
    const ReportPress& press() override { return press_; }

    /// On that printer, as it is set up.
    static bool printOn(QPrinter& printer, const Composer& compose);

  private:
    QWidget* mainWindow_;
    CairoPress press_;
    std::unique_ptr<QPrinter> printer_; // made when first asked for: the system's printers take their time

    QPrinter& printer();
};

} // namespace metrisk
