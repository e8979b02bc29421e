// A text box with a rule: it tells when it is entered and when its entry is to be committed.
#pragma once

#include <QColor>
#include <QLineEdit>
#include <QPalette>
#include <optional>
#include <vector>

namespace metrisk {

class EntryBox final : public QLineEdit {
    Q_OBJECT

  public:
    EntryBox();

    /// A locked box shows its text, which can be copied, but looks and behaves like one that takes no entry.
    void setLocked(bool locked);
    /// Its text is computed: a ground of its own tells it from a locked entry.
    void setResult(bool result);
    /// Colours of its own instead of those of the screens; invalid ones end that.
    void setColors(const QColor& ground, const QColor& text);
    /// Which of the keys are told and otherwise do nothing.
    void setKeys(bool returnKey, bool escapeKey) {
        tellsReturn_ = returnKey;
        tellsEscape_ = escapeKey;
    }
    /// It wishes to be that many characters wide, and may be a little more than half of it where room is
    /// scarce: a text that does not fit is told in full.
    void setRoom(int characters);
    /// It wishes to be as wide as that text.
    void setRoomFor(const QString& text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// Its text is as large as it fits: the first of these shares of its font, else the last, which
    /// are in falling order. The first decides what room it wishes, the second what it needs.
    void setSizes(std::vector<double> sizes);
    /// The text before the entry that is being typed, or since it was committed.
    const QString& settledText() const { return settled_; }
    /// The entry is committed, and perhaps written anew. Undoing puts that text back.
    void settle(const QString& before);
    bool canUndo() const;
    /// Takes back what was typed last, or the entry that was committed last; it counts as typed then, and
    /// there is nothing more to undo.
    void undoEntry();
    /// A sign at its end that there is something to know about the figure.
    void setMarked(bool marked);
    /// In the colour of disabled texts, though it takes entries.
    void setFaded(bool faded);

  signals:
    void entered();
    void keyPressed();
    /// Focus has gone to another control. A menu or another window does not count: the entry goes on.
    void left();
    /// Double click or Return in a locked box.
    void opened();
    void returned();
    void escaped();

  protected:
    bool event(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void paintGround();
    QFont sized(std::size_t size) const;
    bool fits(const QFont& font) const;
    void fitText();

    QColor ground_, text_;
    QPalette painted_; // what differs from the screens
    bool tellsReturn_ = false;
    bool tellsEscape_ = false;
    QString room_{11, '0'}; // a text for which it wishes room
    std::vector<double> sizes_;
    QFont base_; // that the sizes are shares of
    QAction* mark_ = nullptr;
    bool faded_ = false;
    bool result_ = false;
    QString settled_;
    std::optional<QString> before_; // the entry that was committed last
};

} // namespace metrisk
