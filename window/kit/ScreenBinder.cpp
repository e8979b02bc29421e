#include "window/kit/ScreenBinder.h"

#include "window/kit/CellTable.h"
#include "window/kit/EntryBox.h"
#include "window/kit/PictureWidget.h"
#include "window/kit/SheetView.h"
#include "window/kit/ShowControl.h"
#include "window/kit/Widgets.h"

#include <QAbstractButton>
#include <QAction>
#include <QButtonGroup>
#include <QComboBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSlider>
#include <QTextBrowser>
#include <QToolTip>
#include <QUrl>

namespace metrisk {

class ScreenBinder::Binding final : public ControlVisitor {
  public:
    explicit Binding(ScreenBinder& binder) : binder_(binder) {}

    void visit(Panel&) override {} // nothing to use
    void visit(Label&) override {}
    void visit(Meter&) override {}
    void visit(Swatch&) override {}
    void visit(TextBox& box) override { binder_.bind(box); }
    void visit(Button& button) override { binder_.bind(button); }
    void visit(Choice& choice) override { binder_.bind(choice); }
    void visit(ListBox& list) override { binder_.bind(list); }
    void visit(Slider& slider) override { binder_.bind(slider); }
    void visit(PictureArea& picture) override { binder_.bind(picture); }
    void visit(Table& table) override { binder_.bind(table); }
    void visit(Sheet& sheet) override { binder_.bind(sheet); }
    void visit(Memo& memo) override { binder_.bind(memo); }
    void visit(Hypertext& text) override { binder_.bind(text); }

  private:
    ScreenBinder& binder_;
};

ScreenBinder::ScreenBinder(QWidget& window, Worksheet& model)
    : QObject(&window), window_(window), model_(model) {
    for (QWidget* widget : window.findChildren<QWidget*>())
        if (!widget->objectName().isEmpty()) widgets_.insert(widget->objectName(), widget);
    Binding binding(*this);
    for (Control* control : model.controls()) {
        if (!widgets_.contains(control->name)) continue;
        control->accept(binding);
    }
    setTabOrder();
    repaint();
}

QStringList ScreenBinder::unpaired() const {
    QStringList missing;
    for (const Control* control : model_.controls())
        if (!widgets_.contains(control->name)) missing += control->name;
    return missing;
}

void ScreenBinder::act(const std::function<void()>& rule) {
    if (showing_) return; // the screen itself has set a state
    {
        struct Action {
            ScreenBinder& screen;
            explicit Action(ScreenBinder& binder) : screen(binder) {
                if (screen.acting_++ == 0) emit screen.began();
            }
            ~Action() {
                if (--screen.acting_ == 0) emit screen.ended();
            }
        } const action(*this);
        rule();
    }
    if (acting_ > 0) {
        due_ = true;
        return;
    }
    due_ = false;
    show(); // each action of a worksheet ends in a refresh of its own
    if (model_.closedBy()) emit closed();
}

void ScreenBinder::bind(TextBox& box) {
    auto* widget = static_cast<EntryBox*>(widgets_.value(box.name));
    widget->setAlignment((box.holds == Holds::Figures ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    connect(widget, &EntryBox::entered, this,
            [this, &box, widget] { model_.enter(box, widget->text().toStdString()); });
    connect(widget, &EntryBox::keyPressed, this, [this, &box] { model_.key(box); });
    connect(widget, &EntryBox::opened, this, [this, &box] {
        if (box.opened) act([&box] { box.opened(); });
    });
    connect(widget, &EntryBox::textEdited, this, [this, &box](const QString& text) {
        highlight({});
        model_.edit(box, text.toStdString());
        showMenus(); // commands can follow what is being typed
    });
    connect(widget, &EntryBox::left, this, [this, &box, widget] { leave(box, *widget); });
    widget->setKeys(bool(box.returned), bool(box.escaped));
    connect(widget, &EntryBox::returned, this, [this, &box] {
        if (commitEntry()) act([&] { model_.pressReturn(box); });
    });
    connect(widget, &EntryBox::escaped, this, [this, &box, widget] {
        widget->setModified(false);
        act([&] { model_.pressEscape(box); });
    });
}

void ScreenBinder::bind(Button& button) {
    auto* widget = static_cast<QAbstractButton*>(widgets_.value(button.name));
    // A click leaves the focus where it is and commits the entry there itself: a question of that entry's
    // rule would otherwise swallow the click.
    widget->setFocusPolicy(Qt::TabFocus);
    widget->installEventFilter(this);
    if (button.kind == Button::Kind::Radio) {
        const QString name = QString("group%1").arg(button.group);
        auto* group = window_.findChild<QButtonGroup*>(name);
        if (!group) {
            group = new QButtonGroup(&window_);
            group->setObjectName(name);
        }
        group->addButton(widget);
    }
    connect(widget, &QAbstractButton::clicked, this, [this, &button](bool on) {
        if (button.closes)
            close(*button.closes);
        else if (commitEntry())
            act([&] { model_.click(button, on); });
        else
            show();
    });
}

void ScreenBinder::bind(Choice& choice) {
    auto* widget = static_cast<QComboBox*>(widgets_.value(choice.name));
    connect(widget, &QComboBox::activated, this, [this, &choice](int index) {
        if (commitEntry()) act([&] { model_.choose(choice, index); });
    });
}

void ScreenBinder::bind(ListBox& list) {
    auto* widget = static_cast<QListWidget*>(widgets_.value(list.name));
    const auto choose = [this, &list](int index) {
        if (!showing_ && commitEntry()) act([&] { model_.choose(list, index); });
    };
    connect(widget, &QListWidget::currentRowChanged, this, choose);
    connect(widget, &QListWidget::itemClicked, this,
            [widget, choose](QListWidgetItem* item) { choose(widget->row(item)); });
}

void ScreenBinder::bind(Slider& slider) {
    auto* widget = static_cast<QSlider*>(widgets_.value(slider.name));
    connect(widget, &QSlider::valueChanged, this, [this, &slider](int step) {
        act([&] { model_.slide(slider, slider.from + (slider.to - slider.from) * step / sliderSteps); });
    });
}

void ScreenBinder::bind(Hypertext& text) {
    auto* widget = static_cast<QTextBrowser*>(widgets_.value(text.name));
    connect(widget, &QTextBrowser::anchorClicked, this, [this, &text](const QUrl& link) {
        if (commitEntry()) act([&] { model_.jump(text, link.toString().toStdString()); });
    });
}

void ScreenBinder::bind(Table& table) {
    auto* widget = static_cast<CellTable*>(widgets_.value(table.name));
    connect(widget, &CellTable::typed, this, [this, &table](int row, int column, const QString& text) {
        act([&] { model_.leaveCell(table, row, column, text.toStdString()); });
    });
    connect(widget, &CellTable::chosen, this,
            [this, &table, widget] { model_.select(table, widget->range()); });
    connect(widget, &CellTable::edited, this, [this, widget](Editing what) { edit(*widget, what); });
    connect(widget, &CellTable::customContextMenuRequested, this,
            [this, &table](const QPoint& at) { openTableMenu(table, at); });
    if (table.opened)
        connect(widget, &QTableWidget::cellDoubleClicked, this, [this, &table](int row, int) {
            if (commitEntry()) act([&] { model_.open(table, row); });
        });
    connect(widget, &CellTable::dropped, this, [this, &table](CellTable* source, int fromRow, int row) {
        const auto* from = dynamic_cast<const Table*>(model_.find(source->objectName().toStdString()));
        if (from && row >= 0) act([&] { model_.drop(*from, fromRow, table, row); });
    });
}

void ScreenBinder::bind(Sheet& sheet) {
    auto* widget = static_cast<SheetView*>(widgets_.value(sheet.name));
    connect(widget, &SheetView::typed, this, [this, &sheet](int row, int column, const QString& text) {
        act([&] { model_.leaveCell(sheet, row, column, text.toStdString()); });
    });
    connect(widget, &SheetView::chosen, this,
            [this, &sheet, widget] { act([&] { model_.select(sheet, widget->range()); }); });
    connect(widget, &SheetView::edited, this, [this, widget](Editing what) { edit(*widget, what); });
    connect(widget, &SheetView::headingPressed, this,
            [this, &sheet](int column) { act([&] { model_.pressHeading(sheet, column); }); });
    connect(widget, &SheetView::rowOpened, this, [this, &sheet](int row) {
        if (commitEntry()) act([&] { model_.open(sheet, row); });
    });
    connect(widget, &SheetView::customContextMenuRequested, this, [this, &sheet, widget](const QPoint& at) {
        QMenu menu;
        refill(menu, sheet.menu);
        menu.exec(widget->viewport()->mapToGlobal(at));
    });
}

void ScreenBinder::bind(Memo& memo) {
    auto* widget = static_cast<QPlainTextEdit*>(widgets_.value(memo.name));
    connect(widget, &QPlainTextEdit::textChanged, this,
            [this, &memo, widget] { act([&] { model_.edit(memo, widget->toPlainText().toStdString()); }); });
}

void ScreenBinder::bind(PictureArea& picture) {
    auto* widget = static_cast<PictureWidget*>(widgets_.value(picture.name));
    connect(widget, &PictureWidget::clicked, this, [this, &picture](double x, double y) {
        if (picture.clicked && commitEntry())
            act([&] {
                picture.clicked(x, y);
                model_.refresh();
            });
    });
    // Later: the size comes while the screen is being laid out.
    if (picture.resized)
        connect(
            widget, &PictureWidget::resized, this,
            [this, &picture](double width, double height) {
                act([&] { model_.resize(picture, width, height); });
            },
            Qt::QueuedConnection);
}

void ScreenBinder::setTabOrder() {
    QWidget* before = nullptr;
    for (const Control* control : model_.controls()) {
        QWidget* widget = widgets_.value(control->name);
        // A link of the chain that takes no focus would break it there.
        if (!widget || widget->focusPolicy() == Qt::NoFocus) continue;
        if (before) QWidget::setTabOrder(before, widget);
        before = widget;
    }
}

void ScreenBinder::repaint() {
    due_ = true;
    if (acting_ == 0) flush();
}

void ScreenBinder::flush() {
    if (!due_ || showing_) return;
    due_ = false;
    model_.refresh();
    show();
    if (model_.closedBy()) emit closed(); // another screen has closed it
}

void ScreenBinder::show() {
    showing_ = true;
    for (Control* control : model_.controls())
        if (QWidget* widget = widgets_.value(control->name)) show(*control, *widget);
    showing_ = false;
    showMenus();
    // The mark of unsaved changes stands where the desktop has it.
    QString title = qt(model_.caption);
    if (qobject_cast<QMainWindow*>(&window_)) title += "[*]";
    if (window_.windowTitle() != title) window_.setWindowTitle(title);
    emit shown();
}

void ScreenBinder::show(Control& control, QWidget& widget) {
    // A box that is being typed into keeps its text.
    const auto* box = qobject_cast<const EntryBox*>(&widget);
    if (box && box->hasFocus() && box->isModified()) return;
    showControl(control, widget);
}

bool ScreenBinder::leave(TextBox& box, EntryBox& widget) {
    // An action at work moves the focus or shows messages; what was typed before it has been committed, and
    // the texts in the boxes may be those of a record that is gone.
    if (acting_ > 0) return true;
    FieldResult result;
    const QString before = widget.settledText();
    const bool typed = widget.isModified();
    act([&] {
        result = model_.leave(box, widget.text().toStdString());
        widget.setModified(false);
    });
    if (!result.stay) {
        if (typed) widget.settle(before);
        return true;
    }
    widget.setText(qt(result.text));
    stayIn(box, widget);
    return false;
}

/// The focus is still on its way to the next control; it comes back once it has arrived.
void ScreenBinder::stayIn(TextBox& box, EntryBox& widget) {
    QMetaObject::invokeMethod(
        &widget,
        [this, &box, &widget] {
            window_.activateWindow();
            widget.setFocus(Qt::OtherFocusReason);
            widget.selectAll();
            model_.enter(box, widget.text().toStdString());
        },
        Qt::QueuedConnection);
}

bool ScreenBinder::commitEntry() {
    for (QWidget* at = focused(); at; at = at->parentWidget()) {
        if (auto* table = qobject_cast<CellTable*>(at)) table->commitCell();
        if (auto* sheet = qobject_cast<SheetView*>(at)) sheet->commitCell();
    }
    auto* widget = qobject_cast<EntryBox*>(focused());
    if (!widget || !widget->isModified()) return true;
    auto* box = dynamic_cast<TextBox*>(model_.find(widget->objectName().toStdString()));
    if (!box) return true;
    if (!leave(*box, *widget)) return false;
    model_.enter(*box, widget->text().toStdString());
    return true;
}

bool ScreenBinder::perform(const std::function<void()>& action) {
    if (!commitEntry()) return false;
    act([&] {
        action();
        model_.refresh();
    });
    return true;
}

bool ScreenBinder::close(Way way) {
    if (!commitEntry() && way == Way::Ok) return false;
    act([&] { model_.close(way); });
    return model_.closedBy().has_value();
}

void ScreenBinder::focus(const QString& control, bool select) {
    QWidget* widget = widgets_.value(control);
    if (!widget) return;
    // Taking the focus here would commit the box that has it while its own rule still runs.
    QMetaObject::invokeMethod(
        widget,
        [widget, select] {
            widget->setFocus(Qt::OtherFocusReason);
            auto* edit = qobject_cast<QLineEdit*>(widget);
            if (edit && select) edit->selectAll();
        },
        select || model_.leaving() ? Qt::QueuedConnection : Qt::DirectConnection);
}

void ScreenBinder::highlight(const QString& panel) {
    if (highlighted_) highlighted_->setStyleSheet({});
    highlighted_ = panel.isEmpty() ? nullptr : widgets_.value(panel);
    if (highlighted_)
        highlighted_->setStyleSheet(
            "QLabel { background: palette(highlight); color: palette(highlighted-text); }");
}

QWidget* ScreenBinder::focused() const {
    QWidget* widget = window_.focusWidget();
    return qobject_cast<QMenuBar*>(widget) ? beforeMenus_.data() : widget;
}

QLineEdit* ScreenBinder::activeBox() const {
    return qobject_cast<QLineEdit*>(focused());
}

bool ScreenBinder::eventFilter(QObject* watched, QEvent* event) {
    if (auto* bar = qobject_cast<QMenuBar*>(watched)) {
        if (event->type() != QEvent::ToolTip) return false;
        const auto* help = static_cast<QHelpEvent*>(event);
        const MenuItem* item = nullptr;
        if (const QAction* action = bar->actionAt(help->pos())) item = itemOf(action->objectName());
        QToolTip::showText(help->globalPos(), item ? plainTip(qt(item->toolTip)) : QString(), bar);
        return true;
    }
    // Return presses the button that has the focus, in a window as in a dialogue.
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            static_cast<QAbstractButton*>(watched)->click();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace metrisk
