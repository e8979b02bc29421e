// A text box with a rule: it tells when it is entered and when its entry is to be committed.
#pragma once

#include <QLineEdit>

namespace metrisk {

class EntryBox final : public QLineEdit {
    Q_OBJECT

  public:
    using QLineEdit::QLineEdit;

  signals:
    void entered();
    void keyPressed();
    /// Focus has gone to another control. A menu or another window does not count: the entry goes on.
    void left();

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace metrisk
