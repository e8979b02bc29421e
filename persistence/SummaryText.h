// The lines of a data summary as one text.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace metrisk {

class SummaryText {
  public:
    /// `separator` is a tab or a comma.
    explicit SummaryText(char separator) : separator_(separator) {}

    /// An empty line, then the heading.
    void heading(std::string_view text);
    void row(std::initializer_list<std::string_view> cells);

    const std::string& text() const { return text_; }

  private:
    char separator_;
    std::string text_;

    std::string cell(std::string_view content) const;
};

} // namespace metrisk
