// The main screen's state beside the record: entries being made, and the saved copy.
#pragma once

#include "model/FieldResult.h"
#include "shell/mainscreen/SavedCopy.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

struct Session;

/// Bind every box by its name. After any call the boxes are repainted from mainDisplay(); a box that
/// is to be stayed in shows the text of its FieldResult instead.
class MainScreen {
  public:
    explicit MainScreen(Session& session);

    /// The box got focus and shows this text.
    void gotFocus(std::string_view box, std::string text);
    /// Any key event in the box: the user may be asked again about what this box holds.
    void keyPressed(std::string_view box);
    /// The text is being typed; identification texts go to the record at once.
    void edited(std::string_view box, const std::string& text);
    /// Runs the box's field rule. On a refusal or a numeric fault the record is unchanged but for
    /// AbortFlag, which is set; it is set as well when the entry is kept but cannot be fitted.
    FieldResult lostFocus(std::string_view box, const std::string& text) noexcept;

    /// The text a box had when it got focus; empty if the next comparison counts as a change.
    std::optional<std::string> lastText(std::string_view box) const;
    /// The record has been replaced: every next comparison counts as a change.
    void forgetLastTexts();

    void TakeSavedCopy();
    /// Raises FileChanged if the record differs from the saved copy.
    void DetectChanges();

    /// Option optGuardbands: test limits instead of multipliers.
    bool guardbandsAsLimits = false;

  private:
    Session& session_;
    SavedCopy saved_;
    std::map<std::string, std::string, std::less<>> lastTexts_;
};

/// Record to screen, after a load and after a worksheet.
void RefreshMainScreen(Session& session);

} // namespace metrisk
