// Interaction in the window program: message boxes, focus, progress and patience by Qt.
#pragma once

#include "model/Interaction.h"

#include <QPointer>
#include <QWidget>
#include <functional>

namespace metrisk {

/// Controls are found by their object name, first in the active window, then in the main window.
class QtInteraction final : public Interaction {
  public:
    /// The window that owns boxes when no other is active; it may come later.
    void setMainWindow(QWidget* window) { mainWindow_ = window; }

    /// What the main screen does when the record has changed under it.
    std::function<void()> onRepaint;
    std::function<void()> onRatiosChanged;
    std::function<void(const std::string&)> onStatus;
    std::function<void(const std::string&)> onHighlight;

    Answer show(const Box& box) override;
    void focus(std::string_view control, bool select) override;
    void highlight(std::string_view panel) override;
    void yield() override;
    void status(std::string_view text) override;
    void runComputing(ComputingScreen& screen, const std::function<void()>& step) override;
    void updateComputing(const ComputingScreen& screen) override;
    void repaintMainScreen() override;
    void repaintRatioPanels() override;
    void setBusy(bool busy) override;
    void beep() override;

  private:
    QWidget* activeWindow() const;

    QPointer<QWidget> mainWindow_;
    QPointer<QWidget> computing_;
};

} // namespace metrisk
