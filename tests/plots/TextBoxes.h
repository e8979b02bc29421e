// A surface that keeps where texts stand, in device units, with the metrics of a wide font.
#pragma once

#include "drawing/DrawingSurface.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace metrisk::testing {

class TextBoxes final : public DrawingSurface {
  public:
    struct Box {
        std::string text;
        double left, top, right, bottom;
    };

    TextBoxes(double width, double height) : DrawingSurface(black, white), width_(width), height_(height) {}

    double deviceWidth() const override { return width_; }
    double deviceHeight() const override { return height_; }

    const std::vector<Box>& boxes() const { return boxes_; }

    /// Every text is inside of the picture and none touches another.
    void expectReadable(const std::string& name) const {
        for (const Box& a : boxes_) {
            EXPECT_TRUE(a.left > -1 && a.right < width_ + 1 && a.top > -1 && a.bottom < height_ + 1)
                << name << " " << width_ << ": \"" << a.text << "\" at " << a.left << " " << a.top << " to "
                << a.right << " " << a.bottom;
            for (const Box& b : boxes_)
                EXPECT_FALSE(&a < &b && a.left < b.right - 0.1 && b.left < a.right - 0.1 &&
                             a.top < b.bottom - 1 && b.top < a.bottom - 1)
                    << name << " " << width_ << ": \"" << a.text << "\" over \"" << b.text << "\"";
        }
    }

  private:
    void clear() override { boxes_.clear(); }
    void drawLine(Point, Point, Colour) override {}
    void drawBox(Point, Point, Colour) override {}
    void drawText(Point topLeft, std::string_view text) override {
        const Point at = toDevice(topLeft);
        if (!text.empty())
            boxes_.push_back({std::string(text), at.x, at.y, at.x + measureText(text), at.y + measureLine()});
    }
    double measureText(std::string_view text) const override {
        const auto characters =
            std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; });
        return (Font.Bold ? 0.65 : 0.6) * Font.Size * 96 / 72 * static_cast<double>(characters);
    }
    double measureLine() const override { return 1.2 * Font.Size * 96 / 72; }

    double width_, height_;
    std::vector<Box> boxes_;
};

} // namespace metrisk::testing
