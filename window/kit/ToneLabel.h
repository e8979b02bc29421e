// A label whose colour says what its words do, with a sign before them that says it as well.
#pragma once

#include "desk/kit/Controls.h"

#include <QLabel>

namespace metrisk {

/// Colours alone tell nothing to those who do not see them: a tone goes with words or a sign. Where the words
/// have no room the sign stands alone; the words are its name in assistive tools.
class ToneLabel final : public QLabel {
    Q_OBJECT

  public:
    ToneLabel(const QString& text, Label::Sign sign) : QLabel(text), sign_(sign) {
        setTextFormat(Qt::PlainText);
    }

    void setTone(Label::Tone tone, Label::Sign sign);
    /// The words may be left out where room is scarce.
    void setTerse(bool terse);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int signRoom() const;
    QSize textSize() const;

    Label::Tone tone_ = Label::Tone::Plain;
    Label::Sign sign_;
    bool terse_ = false;
    mutable QString measuredText_;
    mutable QFont measuredFont_;
    mutable QSize measured_; // of that text in that font
};

} // namespace metrisk
