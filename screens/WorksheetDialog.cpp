#include "screens/WorksheetDialog.h"

#include "model/Worksheet.h"
#include "screens/ScreenBinder.h"
#include "screens/Widgets.h"

#include <QMenuBar>
#include <QScreen>
#include <QShowEvent>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace metrisk {

WorksheetDialog::WorksheetDialog(Worksheet& model, const LayoutOf& layoutOf, QWidget* parent)
    : QDialog(parent) {
    setObjectName(model.name);
    setWindowModality(Qt::WindowModal); // help stays within reach
    auto* layout = new QVBoxLayout(this);
    QWidget* content = layoutOf(model.name, WidgetMaker(model));
    if (!content) qFatal("no layout of the screen %s", model.name);
    layout->addWidget(content);
    // A picture is looked at as large as one likes.
    for (const Control* control : model.controls())
        if (dynamic_cast<const PictureArea*>(control)) setWindowFlag(Qt::WindowMaximizeButtonHint);
    binder_ = new ScreenBinder(*this, model);
    if (!model.menus.empty()) {
        auto* bar = new QMenuBar(this);
        binder_->buildMenus(*bar);
        layout->setMenuBar(bar);
    }
    if (!model.toolbar.empty()) {
        auto* bar = new QToolBar(this);
        bar->setObjectName("toolbar");
        layout->insertWidget(0, bar);
        binder_->buildToolbar(*bar, model.toolbar);
    }
    connect(binder_, &ScreenBinder::closed, this, &QDialog::accept);
    connect(binder_, &ScreenBinder::shown, this, &WorksheetDialog::followContent);
}

/// A part that is shown or hidden makes the screen larger or smaller, but never past the desktop.
void WorksheetDialog::followContent() {
    if (!isVisible() || work_) return;
    layout()->activate();
    const QSize hint = sizeHint();
    if (hint == content_) return;
    const QRect desktop = screen()->availableGeometry();
    resize((size() + hint - content_).expandedTo(hint).boundedTo(desktop.size()));
    content_ = hint;
    QRect frame = frameGeometry();
    frame.moveRight(std::min(frame.right(), desktop.right()));
    frame.moveBottom(std::min(frame.bottom(), desktop.bottom()));
    frame.moveTopLeft({std::max(frame.left(), desktop.left()), std::max(frame.top(), desktop.top())});
    if (frame != frameGeometry()) move(frame.topLeft());
}

void WorksheetDialog::run(const std::function<void()>& work) {
    work_ = work;
    exec();
}

void WorksheetDialog::standOver(QWidget* parent, Qt::WindowModality modality) {
    const QPoint place = pos();
    setParent(parent, windowFlags());
    setWindowModality(modality);
    move(place);
    show();
}

void WorksheetDialog::reject() {
    binder_->close(Way::Cancel);
}

void WorksheetDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    content_ = sizeHint();
    // A screen without boxes has the focus itself: a menu that was opened by its letter gives it back.
    if (!focusWidget()) setFocus(Qt::OtherFocusReason);
    if (!work_ || event->spontaneous()) return;
    // A progress screen does not change its size while its texts do, and stands where it is seen.
    setFixedSize(size());
    const QRect desktop = screen()->availableGeometry();
    move(desktop.center() - rect().center());
    QTimer::singleShot(0, this, [this] {
        // It ends even if its work ends in an error that somebody above tells.
        struct Done {
            WorksheetDialog& dialog;
            ~Done() { dialog.accept(); }
        } const done{*this};
        work_();
    });
}

} // namespace metrisk
