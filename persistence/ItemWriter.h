// Writes the items of an analysis file.
#pragma once

#include "base/Flag.h"
#include "persistence/AnalysisItems.h"

#include <string>
#include <string_view>

namespace metrisk {

/// The newest form of the file, in UTF-8 with CR LF. A number that could not be read back (not finite,
/// beyond 16 bit, too many samples) raises RuntimeFault.
class ItemWriter {
  public:
    static constexpr bool reading = false;

    explicit ItemWriter(float version) : version_(version) {}

    float version() const { return version_; }
    bool from(float version) const { return version_ >= version; }
    bool after(float version) const { return version_ > version; }

    void reached(LayoutPoint) {}

    /// The items on one line, parted by commas.
    template <class... Items>
    void line(const Items&... items) {
        (item(items), ...);
        endLine();
    }
    /// Every item on a line of its own.
    template <class... Items>
    void each(const Items&... items) {
        (line(items), ...);
    }

    const std::string& text() const { return text_; }

  private:
    void item(double value);
    void item(float value);
    void item(int value); // 16 bit
    void item(bool value);
    void item(const Flag& value);
    void item(const std::string& value);
    void item(AsLong<const Flag> value);
    void item(AsFixed<const std::string> value);
    void item(AsSampleSize<const int> value);
    void item(AsMagnitude<const int> value);
    void item(UnusedItem);

    void add(std::string_view item);
    void endLine();

    std::string text_;
    bool lineStarted_ = false;
    float version_;
};

} // namespace metrisk
