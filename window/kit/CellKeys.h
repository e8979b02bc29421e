// What all views of cells do alike: keys, and the ends of typing in a cell.
#pragma once

#include "desk/kit/Menu.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <utility>

namespace metrisk {

/// Over QTableView, or a class of its own that is made of it.
template <class View>
class CellKeys : public View {
  public:
    /// Ends the typing in a cell as leaving it would.
    void commitCell() {
        if (this->state() != View::EditingState) return;
        for (QLineEdit* editor : this->viewport()->template findChildren<QLineEdit*>()) {
            this->commitData(editor);
            closeEditor(editor, QAbstractItemDelegate::NoHint);
        }
    }

  protected:
    virtual void pressed(Editing what) = 0;
    /// Return on a cell that cannot be typed into; false leaves it to the screen's default button.
    virtual bool returned(const QModelIndex&) { return false; }

    void keyPressEvent(QKeyEvent* event) override {
        constexpr std::pair<QKeySequence::StandardKey, Editing> keys[] = {
            {QKeySequence::Cut, Editing::Cut},
            {QKeySequence::Copy, Editing::Copy},
            {QKeySequence::Paste, Editing::Paste},
            {QKeySequence::Delete, Editing::Delete},
            {QKeySequence::Undo, Editing::Undo}};
        for (const auto& [key, what] : keys)
            if (event->matches(key)) {
                pressed(what);
                return;
            }
        const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (isReturn && this->state() == View::EditingState) return; // the cell's editor has had it
        const QModelIndex current = this->currentIndex();
        if (isReturn && current.isValid()) {
            // Return opens a cell as F2 does; the screen's default button is not meant.
            if (current.flags().testFlag(Qt::ItemIsEditable)) {
                this->edit(current);
                return;
            }
            if (returned(current)) return;
        }
        View::keyPressEvent(event);
    }

    /// Return goes on to the next row, as columns are typed.
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override {
        View::closeEditor(editor, hint);
        const QModelIndex current = this->currentIndex();
        if (hint == QAbstractItemDelegate::SubmitModelCache && current.row() + 1 < this->model()->rowCount())
            this->setCurrentIndex(this->model()->index(current.row() + 1, current.column()));
    }
};

} // namespace metrisk
