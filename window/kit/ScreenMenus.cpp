// The menus of a screen: built from its worksheet's data, run by its binder.
#include "window/kit/ScreenBinder.h"

#include "window/kit/CellTable.h"
#include "window/kit/EntryBox.h"
#include "window/kit/SheetView.h"
#include "window/kit/ToolIcon.h"
#include "window/kit/Widgets.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QToolBar>
#include <QToolButton>
#include <utility>

namespace metrisk {

void ScreenBinder::buildMenus(QMenuBar& bar) {
    bar.installEventFilter(this);
    // A bar that the arrow keys go through has the focus itself; its commands are for what had it before.
    connect(qApp, &QApplication::focusChanged, this,
            [this, menus = static_cast<const QWidget*>(&bar)](QWidget* before, const QWidget* now) {
                if (now == menus) beforeMenus_ = before;
            });
    // A letter of the menu bar must act at the first press: a button of the same letter keeps its line alone.
    for (auto* button : window_.findChildren<QAbstractButton*>())
        for (const MenuItem& item : model_.menus)
            if (!button->shortcut().isEmpty() &&
                button->shortcut() == QKeySequence::mnemonic(qt(item.caption)))
                button->setShortcut({});
    for (const MenuItem& item : model_.menus) {
        if (!item.isMenu()) {
            bar.addAction(makeAction(item));
            continue;
        }
        QMenu* menu = bar.addMenu(caption(item.caption));
        menu->setObjectName(item.control);
        menu->setToolTipsVisible(true);
        for (const MenuItem& below : item.items) addItem(*menu, below);
        if (item.items.front().editing == Editing::None) continue;
        connect(menu, &QMenu::aboutToShow, this, &ScreenBinder::showEditState);
        // The toolbar's editing buttons and the box's keys work without the menu having been opened.
        connect(menu, &QMenu::aboutToHide, this, [menu] {
            for (QAction* action : menu->actions()) action->setEnabled(true);
        });
    }
}

int ScreenBinder::toolIconSize(const QToolBar& bar) {
    return std::max(20, bar.fontMetrics().lineSpacing() + 4);
}

void ScreenBinder::buildToolbar(QToolBar& bar, const std::vector<ToolButton>& buttons) {
    const int size = toolIconSize(bar);
    bar.setIconSize({size, size});
    const QMenuBar* menus = window_.findChild<QMenuBar*>();
    bool ended = false;
    for (const ToolButton& button : buttons) {
        QAction* command = action(button.command);
        auto* pressed = qobject_cast<QAbstractButton*>(widgets_.value(button.command));
        if (!pressed && (!command || !command->isEnabled())) { // its screen is not part of the program
            ended = ended || button.separatorAfter;
            continue;
        }
        if (ended && !bar.actions().isEmpty()) bar.addSeparator();
        ended = button.separatorAfter;
        // An icon is drawn when it is first seen.
        QAction* made = bar.addAction(toolIcon(qt(button.image())), button.toolTip, this,
                                      [this, pressed, name = QString(button.command)] {
                                          if (pressed)
                                              pressed->click();
                                          else
                                              run(name);
                                          endHover();
                                      });
        QString tip = button.toolTip; // the dots, too
        if (command && !command->shortcut().isEmpty())
            tip += " (" + command->shortcut().toString(QKeySequence::NativeText) + ")";
        made->setToolTip(tip);
        made->setObjectName(bar.objectName() + "_" + button.key);
        if (command && menus && !menus->actions().contains(command)) command->setIcon(made->icon());
    }
}

/// A screen that has been over the toolbar has kept from it that the pointer went away.
void ScreenBinder::endHover() {
    for (auto* button : window_.findChildren<QToolButton*>()) {
        if (!button->underMouse() || button->rect().contains(button->mapFromGlobal(QCursor::pos()))) continue;
        button->setAttribute(Qt::WA_UnderMouse, false);
        button->update();
    }
}

void ScreenBinder::addItem(QMenu& menu, const MenuItem& item) {
    if (!item.isMenu()) {
        menu.addAction(makeAction(item));
    } else {
        QMenu* below = menu.addMenu(caption(item.caption));
        below->setObjectName(item.control);
        below->setToolTipsVisible(true);
        for (const MenuItem& next : item.items) addItem(*below, next);
        if (item.fill)
            connect(below, &QMenu::aboutToShow, this,
                    [this, below, fill = item.fill] { refill(*below, fill()); });
    }
    if (item.separatorAfter) menu.addSeparator();
}

void ScreenBinder::refill(QMenu& menu, const std::vector<MenuItem>& items) {
    menu.clear();
    for (const MenuItem& item : items) {
        QAction* action = menu.addAction(qt(item.caption), this, [this, item] {
            if (commitEntry()) act([&] { model_.run(item); });
        });
        action->setEnabled(item.enabled());
        action->setToolTip(plainTip(qt(item.toolTip)));
    }
}

QAction* ScreenBinder::makeAction(const MenuItem& item) {
    auto* action = new QAction(caption(item.caption), &window_);
    const QString name = item.control;
    action->setObjectName(name);
    action->setEnabled(item.enabled());
    action->setCheckable(item.checked.has_value());
    action->setChecked(item.checked.value_or(false));
    action->setToolTip(plainTip(qt(item.toolTip)));
    action->setShortcuts(QKeySequence::listFromString(item.shortcut, QKeySequence::PortableText));
    // The boxes have the editing keys already; a second owner would make them ambiguous.
    if (item.editing != Editing::None) action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, [this, name] { run(name); });
    actions_.insert(name, action);
    return action;
}

void ScreenBinder::showMenus() {
    for (auto at = actions_.cbegin(); at != actions_.cend(); ++at) {
        const MenuItem* item = itemOf(at.key());
        if (!item) continue;
        QAction& action = *at.value();
        if (const QString text = caption(item->caption); action.text() != text) action.setText(text);
        if (item->editing == Editing::None) action.setEnabled(item->enabled());
        action.setCheckable(item->checked.has_value());
        action.setChecked(item->checked.value_or(false));
    }
}

const MenuItem* ScreenBinder::itemOf(const QString& name) const {
    return findItem(std::as_const(model_.menus), name.toUtf8().constData());
}

void ScreenBinder::run(const QString& name) {
    const MenuItem* item = itemOf(name);
    if (!item || !item->enabled()) return;
    if (item->editing != Editing::None)
        edit(item->editing);
    else if (commitEntry())
        act([&] { model_.run(*item); });
}

void ScreenBinder::openTableMenu(Table& table, const QPoint& at) {
    auto* widget = static_cast<CellTable*>(widgets_.value(table.name));
    model_.select(table, widget->range());
    QMenu menu;
    refill(menu, table.menu);
    menu.exec(widget->viewport()->mapToGlobal(at));
}

namespace {

/// What an editing command puts over the selected cells; cells that are cut or copied go to the clipboard.
template <class Widget>
CellBlock cellsFor(const Widget& widget, const Table::Range& range, Editing what) {
    if (what == Editing::Copy || what == Editing::Cut)
        QApplication::clipboard()->setText(qt(writeCells(widget.texts(range))));
    if (what == Editing::Paste) return readCells(QApplication::clipboard()->text().toStdString());
    if (what != Editing::Cut && what != Editing::Delete) return {};
    return CellBlock(static_cast<std::size_t>(range.bottom) - static_cast<std::size_t>(range.top) + 1,
                     std::vector<std::string>(static_cast<std::size_t>(range.right) -
                                              static_cast<std::size_t>(range.left) + 1));
}

} // namespace

void ScreenBinder::edit(CellTable& widget, Editing what) {
    auto* table = dynamic_cast<Table*>(model_.find(widget.objectName().toStdString()));
    const Table::Range range = widget.range();
    if (!table || range.empty()) return;
    const CellBlock cells = cellsFor(widget, range, what);
    if (!cells.empty()) act([&] { model_.putCells(*table, range.top, range.left, cells); });
}

void ScreenBinder::edit(SheetView& widget, Editing what) {
    auto* sheet = dynamic_cast<Sheet*>(model_.find(widget.objectName().toStdString()));
    if (!sheet) return;
    if (what == Editing::Undo) {
        act([&] { model_.undo(*sheet); });
        return;
    }
    Table::Range range = widget.range();
    if (range.empty()) range = {0, 0, 0, 0}; // of a sheet without rows
    const CellBlock cells = cellsFor(widget, range, what);
    if (!cells.empty()) act([&] { model_.putCells(*sheet, range.top, range.left, cells); });
}

void ScreenBinder::edit(Editing what) {
    if (auto* table = qobject_cast<CellTable*>(focused())) {
        edit(*table, what);
        return;
    }
    if (auto* sheet = qobject_cast<SheetView*>(focused())) {
        edit(*sheet, what);
        return;
    }
    QLineEdit* box = activeBox();
    if (!box) return;
    switch (what) {
    case Editing::Undo: // not of the record
        if (auto* entry = qobject_cast<EntryBox*>(box))
            entry->undoEntry();
        else
            box->undo();
        return;
    case Editing::Cut: box->cut(); return;
    case Editing::Copy: box->copy(); return;
    case Editing::Paste: box->paste(); return;
    case Editing::Delete:
        if (!box->isReadOnly()) box->del();
        return;
    case Editing::None: return;
    }
}

void ScreenBinder::showEditState() {
    const QLineEdit* box = activeBox();
    const QMimeData* clipboard = QApplication::clipboard()->mimeData();
    const bool typed = box && !box->isReadOnly();
    if (qobject_cast<CellTable*>(focused())) return; // of a table everything but Undo
    if (qobject_cast<SheetView*>(focused())) return;
    const auto can = [&](Editing what) {
        switch (what) {
        case Editing::Undo: {
            const auto* entry = qobject_cast<const EntryBox*>(box);
            return entry ? entry->canUndo() : typed && box->isUndoAvailable();
        }
        case Editing::Cut: return typed && box->hasSelectedText();
        case Editing::Copy: return box && box->hasSelectedText();
        case Editing::Paste: return typed && clipboard && clipboard->hasText();
        case Editing::Delete: return typed && !box->text().isEmpty();
        case Editing::None: break;
        }
        return true;
    };
    for (auto at = actions_.cbegin(); at != actions_.cend(); ++at) {
        const MenuItem* item = itemOf(at.key());
        if (item && item->editing != Editing::None) at.value()->setEnabled(can(item->editing));
    }
}

} // namespace metrisk
