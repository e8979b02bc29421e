#include "window/kit/EntryBox.h"

#include "window/kit/ColourRoles.h"
#include "window/kit/LookStyle.h"
#include "window/kit/Widgets.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QStyle>
#include <QToolTip>
#include <algorithm>
#include <utility>

namespace metrisk {

namespace {

constexpr int textMargin = 4; // beside the two pixels of every line of text
constexpr int leastHeight = 24;

int beside(const QMargins& margins) {
    return margins.left() + margins.right() + 6;
}

/// As wide as that text would be. Digits are all of one width, and a text is shaped glyph by glyph: for the
/// fifty boxes of a screen that is felt at its start.
int widthOf(const QString& room, const QFont& font) {
    const QFontMetricsF metrics(font);
    const bool digits = room.count('0') == room.size();
    return qRound(digits ? double(room.size()) * metrics.horizontalAdvance('0')
                         : metrics.horizontalAdvance(room));
}

/// The box keeps its entry while the user looks at a menu, a box or another program.
bool goesOn(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
           reason == Qt::ActiveWindowFocusReason;
}

} // namespace

EntryBox::EntryBox() {
    setTextMargins(textMargin, 0, textMargin, 0);
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        fitText();
        if (isModified()) return;
        settled_ = text;
        before_.reset();
    });
}

void EntryBox::setResult(bool result) {
    result_ = result;
}

void EntryBox::setLocked(bool locked) {
    if (isReadOnly() != locked) setReadOnly(locked);
    setFocusPolicy(locked ? Qt::ClickFocus : Qt::StrongFocus);
    paintGround();
}

void EntryBox::setColors(const QColor& ground, const QColor& text) {
    ground_ = ground;
    text_ = text;
    paintGround();
}

void EntryBox::paintGround() {
    const bool follows = !ground_.isValid() && !isReadOnly() && !faded_;
    if (follows && painted_.resolveMask() == 0) return;
    QPalette own; // everything that is not set here goes on following the desktop
    const QPalette screens = QApplication::palette();
    if (ground_.isValid()) {
        setReadable(own, QPalette::Base, ground_, QPalette::Text, text_);
    } else if (isReadOnly() && paletteIsKept()) {
        const auto group = QPalette::Disabled;
        setReadable(own, QPalette::Base, screens.color(QPalette::Window), QPalette::Text,
                    screens.color(QPalette::WindowText));
        own.setColor(group, QPalette::Text, screens.color(group, QPalette::WindowText));
    } else if (isReadOnly()) {
        const ColourRoles& roles = rolesFor(screens);
        own.setColor(QPalette::Base, result_ ? roles.result : roles.readOnly);
        own.setColor(QPalette::Text, result_ ? roles.resultText : screens.color(QPalette::WindowText));
        const auto group = QPalette::Disabled;
        own.setColor(group, QPalette::Base, roles.readOnly);
        own.setColor(group, QPalette::Text, screens.color(group, QPalette::WindowText));
    }
    if (faded_)
        for (const auto group : {QPalette::Active, QPalette::Inactive})
            own.setColor(group, QPalette::Text, screens.color(QPalette::Disabled, QPalette::Text));
    if (own == painted_ && own.resolveMask() == painted_.resolveMask()) return;
    painted_ = own;
    setPalette(own);
}

void EntryBox::setFaded(bool faded) {
    if (faded == faded_) return;
    faded_ = faded;
    paintGround();
}

void EntryBox::settle(const QString& before) {
    settled_ = text();
    before_ = before;
}

bool EntryBox::canUndo() const {
    return !isReadOnly() && (isUndoAvailable() || before_);
}

void EntryBox::undoEntry() {
    if (!canUndo()) return;
    if (before_ && !isModified()) {
        setText(*before_);
        emit textEdited(text());
    } else {
        undo();
        setText(QString(text())); // the rest of its history goes
    }
    setModified(true);
}

void EntryBox::setRoom(int characters) {
    setRoomFor(QString(characters, '0'));
}

void EntryBox::setRoomFor(const QString& text) {
    room_ = text;
    updateGeometry();
}

void EntryBox::setSizes(std::vector<double> sizes) {
    sizes_ = std::move(sizes);
    base_ = font();
    fitText();
}

QFont EntryBox::sized(std::size_t size) const {
    if (sizes_.empty()) return font();
    QFont made = base_;
    made.setPointSizeF(base_.pointSizeF() * sizes_[std::min(size, sizes_.size() - 1)]);
    made.setBold(font().bold());
    return made;
}

bool EntryBox::fits(const QFont& font) const {
    const int sign = mark_ ? style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this) + textMargin : 0;
    return QFontMetrics(font).horizontalAdvance(text()) <= width() - beside(textMargins()) - sign;
}

void EntryBox::fitText() {
    if (sizes_.empty()) return;
    std::size_t size = 0;
    while (size + 1 < sizes_.size() && !fits(sized(size))) ++size;
    if (const QFont wanted = sized(size); wanted != font()) setFont(wanted);
}

QSize EntryBox::sizeHint() const {
    const QFont largest = sized(0);
    const int growth = sizes_.empty() ? 0 : QFontMetrics(largest).height() - fontMetrics().height();
    return {widthOf(room_, largest) + beside(textMargins()),
            std::max(leastHeight, QLineEdit::sizeHint().height() + growth)};
}

QSize EntryBox::minimumSizeHint() const {
    if (sizes_.size() > 1) {
        // From the largest, a pixel a letter for its rounding: a font is not loaded for what is rarely shown.
        const double share = sizes_[1] / sizes_[0];
        const int least = qCeil(share * widthOf(room_, sized(0))) + static_cast<int>(room_.size());
        return {least + beside(textMargins()), sizeHint().height()};
    }
    constexpr int scarce = 3, plenty = 5;
    return {widthOf(room_.left((room_.size() * scarce + plenty - 1) / plenty), font()) +
                beside(textMargins()),
            std::max(leastHeight, QLineEdit::minimumSizeHint().height())};
}

void EntryBox::setMarked(bool marked) {
    if (marked == (mark_ != nullptr)) return;
    if (marked) {
        mark_ = addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::LeadingPosition);
        mark_->setObjectName("mark");
    } else {
        delete mark_;
        mark_ = nullptr;
    }
    fitText();
}

bool EntryBox::event(QEvent* event) {
    // A text that does not fit is told in full.
    if (event->type() == QEvent::ToolTip && !fits(font())) {
        const QString said = accessibleDescription();
        const QString tip = said.isEmpty() ? text() : text() + "\n" + said;
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainTip(tip), this);
        return true;
    }
    // The colour of a locked box is that of the screens.
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange)
        paintGround();
    return QLineEdit::event(event);
}

void EntryBox::dragEnterEvent(QDragEnterEvent* event) {
    // A file belongs to the window, wherever it is dropped.
    if (event->mimeData()->hasUrls())
        event->ignore();
    else
        QLineEdit::dragEnterEvent(event);
}

void EntryBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!goesOn(event->reason())) emit entered();
}

void EntryBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (!goesOn(event->reason())) emit left();
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
    const bool typing = !event->text().isEmpty() && event->key() != Qt::Key_Tab &&
                        event->key() != Qt::Key_Backtab && event->key() != Qt::Key_Escape &&
                        !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReadOnly() && isReturn) {
        emit opened();
        return;
    }
    // The first drops what was typed; the next is the screen's.
    if (tellsEscape_ && event->key() == Qt::Key_Escape && isModified()) {
        emit escaped();
        return;
    }
    if (!isReadOnly() || typing) emit keyPressed();
    if (tellsReturn_ && isReturn) {
        emit returned();
        return;
    }
    if (event->matches(QKeySequence::Undo) && !isUndoAvailable()) {
        undoEntry();
        return;
    }
    // Return commits as leaving does and goes on to the next box.
    if (isReturn) {
        focusNextPrevChild(true);
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void EntryBox::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    fitText();
}

void EntryBox::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    if (isReadOnly()) emit opened();
}

} // namespace metrisk
