// Reads the items of an analysis file one after the other.
#pragma once

#include "base/Flag.h"
#include "persistence/AnalysisItems.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace metrisk {

/// A comma, a line end or a closing quote ends an item. Every fault (no further item, a number that is
/// none, out of range or perhaps cut off by the end of the file) raises RuntimeFault and leaves the
/// variable at hand.
class ItemReader {
  public:
    static constexpr bool reading = true;

    /// `text` is UTF-8 and must outlive the reader.
    explicit ItemReader(std::string_view text, std::function<void(LayoutPoint)> onPoint = {})
        : text_(text), onPoint_(std::move(onPoint)) {}

    void setVersion(float version) { version_ = version; }
    float version() const { return version_; }
    /// Where the item read last begins, or was looked for: lines count from 1.
    std::size_t lineNumber() const;
    bool from(float version) const { return version_ >= version; }
    bool after(float version) const { return version_ > version; }

    void reached(LayoutPoint point) {
        if (onPoint_) onPoint_(point);
    }

    template <class... Items>
    void line(Items&&... items) {
        (item(items), ...);
    }
    template <class... Items>
    void each(Items&&... items) {
        (item(items), ...);
    }

    void item(double& value);
    void item(float& value);
    void item(int& value); // 16 bit
    void item(bool& value);
    void item(Flag& value);
    void item(std::string& value);
    void item(AsLong<Flag> value);
    void item(AsFixed<std::string> value);
    void item(AsSampleSize<int> value);
    void item(AsMagnitude<int> value);
    void item(UnusedItem);

  private:
    struct Item {
        std::string_view text;
        bool quoted = false;
        bool complete = false; // a delimiter followed
    };

    Item next();
    void skipBlanks();
    bool takeDelimiter();
    std::string text();
    double number();
    long integer(long smallest, long largest);

    std::string_view text_;
    std::function<void(LayoutPoint)> onPoint_;
    std::size_t at_ = 0;
    std::size_t itemAt_ = 0;
    float version_ = 0;
};

} // namespace metrisk
