// The colours and bold texts of a scheme on the widgets of the program.
#pragma once

#include "desk/kit/Desktop.h"

class QWidget;

namespace metrisk {

class QtLooks final : public Looks {
  public:
    /// The main screen's window, which must outlive it.
    explicit QtLooks(QWidget& window) : window_(window) {}

    std::optional<double> chooseColor(std::string_view title, double present) override;
    void ApplyColorScheme(const ColorScheme& scheme) override;

  private:
    QWidget& window_;
    bool colored_ = false; // the screens have colours of a scheme

    void applyColors(const ColorScheme& scheme, bool own);
    void applyBold(const ColorScheme& scheme);
};

/// Brings the program's font to what this desktop has room for. Before any window is made.
void fitFonts();

} // namespace metrisk
