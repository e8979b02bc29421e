// A report that keeps the operations it was composed of, a line each.
#pragma once

#include "reports/ReportDocument.h"
#include "reports/TableMarkup.h"

#include <cmath>
#include <string>

namespace metrisk::testing {

/// Every line of text is as high as the font says; nothing is broken.
class RecordedReport final : public ReportDocument {
  public:
    std::string operations;

    RecordedReport() : ReportDocument(PageSetup{}) {}

    void StartDoc() override { CurrentY = MarginTop; }
    void EndDoc() override { add("end"); }
    void NewPage() override {
        add("new page");
        CurrentY = MarginTop;
    }
    void Text(std::string_view text) override {
        add(text == "\n" ? "line feed" : "text " + at() + " \"" + std::string(text) + "\"");
        down(1);
    }
    void Table(std::string_view markup) override {
        add("table " + at() + " " + std::string(markup));
        down(static_cast<double>(readTable(markup).rows.size()));
    }
    void DrawLine(double x1, double y1, double x2, double y2) override {
        add("line " + number(x1) + "," + number(y1) + " to " + number(x2) + "," + number(y2));
    }
    void DrawPicture(const ReportPicture& picture, double x, double y, double width, double height) override {
        add("picture " + number(x) + "," + number(y) + " " + number(width) + "x" + number(height) + " \"" +
            picture.description + "\"");
        CurrentY = y + height;
    }
    void ExportRaw(std::string_view raw) override { add("raw " + std::string(raw)); }

  private:
    std::string running_;

    static std::string number(double value) { return std::to_string(std::lround(value)); }
    std::string at() const {
        return number(CurrentX != 0 ? CurrentX : MarginLeft + IndentLeft) + "," + number(CurrentY) + " " +
               number(FontSize) + (FontBold ? " bold" : "");
    }
    void down(double lines) {
        CurrentY += lines * lineHeight();
        CurrentX = 0;
    }
    void add(const std::string& line) {
        if (const std::string now = Header + " / " + Footer; now != running_) {
            running_ = now;
            operations += "running " + now + "\n";
        }
        operations += line + "\n";
    }
};

} // namespace metrisk::testing
