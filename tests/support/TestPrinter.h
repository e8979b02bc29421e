// A printer that keeps what it was given.
#pragma once

#include "desk/reports/ReportPrinter.h"
#include "drawing/Drawing.h"

namespace metrisk::testing {

/// The "files" it makes say how many pages and pictures they would hold.
class TestPress final : public ReportPress {
  public:
    std::shared_ptr<DrawingSurface> metrics(const PageSetup&) const override {
        return std::make_shared<Drawing>(816, 1056);
    }
    std::string pdf(const PagedReport& report, const std::string& title, const Moment&) const override {
        return title + ", pages " + std::to_string(report.pages.size());
    }
    std::string png(const ReportPicture&, int, int) const override { return "PNG"; }
};

class TestPrinter final : public ReportPrinter {
  public:
    bool there = true;
    bool works = true;
    int setUps = 0;
    std::vector<std::size_t> printedPages; // of each report

    bool isThere() override { return there; }
    std::vector<std::string> fonts() override { return {"Arial", "Courier"}; }
    void setUp() override { ++setUps; }
    PageSetup page() override { return {}; }
    std::shared_ptr<DrawingSurface> metrics(const PageSetup& page) override { return press_.metrics(page); }
    bool print(const Composer& compose, std::string_view) override {
        Drawing metrics(816, 1056);
        const auto report = compose(metrics, page());
        if (report) printedPages.push_back(report->pages.size());
        return works && report;
    }
    const ReportPress& press() override { return press_; }

  private:
    TestPress press_;
};

} // namespace metrisk::testing
