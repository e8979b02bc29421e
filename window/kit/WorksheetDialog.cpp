#include "window/kit/WorksheetDialog.h"

#include "desk/kit/Worksheet.h"
#include "window/kit/ContentArea.h"
#include "window/kit/DesktopFit.h"
#include "window/kit/LookStyle.h"
#include "window/kit/Panels.h"
#include "window/kit/ScreenBinder.h"
#include "window/kit/SheetView.h"
#include "window/kit/Widgets.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QShowEvent>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

namespace metrisk {

namespace {

const QSize edge(24, 24); // of the desktop, which no screen covers
constexpr int leastHeight = 240;

/// What a part asks for reaches the screen by one event a container. They are not waited for, so that a
/// screen is never seen in a size between.
void settleLayouts() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}

/// The first box that a user fills, else the first control that the keyboard reaches in the content; null if
/// there is none.
QWidget* firstToUse(const QWidget& content) {
    QWidget* first = nullptr;
    for (QWidget* each = content.nextInFocusChain(); content.isAncestorOf(each);
         each = each->nextInFocusChain()) {
        if (!each->isVisible() || !each->isEnabled() || !(each->focusPolicy() & Qt::TabFocus)) continue;
        if (qobject_cast<SheetView*>(each)) return each; // what is above it says how it is shown
        const auto* box = qobject_cast<QLineEdit*>(each);
        if (!first || (box && !box->isReadOnly() && !qobject_cast<QLineEdit*>(first))) first = each;
    }
    return first;
}

} // namespace

WorksheetDialog::WorksheetDialog(Worksheet& model, const LayoutOf& layoutOf, QWidget* parent)
    : QDialog(parent) {
    setObjectName(model.name);
    setWindowModality(Qt::WindowModal); // help stays within reach
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetNoConstraint); // give() sees to it
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    QWidget* content = layoutOf(model.name, WidgetMaker(model));
    if (!content) qFatal("no layout of the screen %s", model.name);
    if (!content->property(edgelessProperty).toBool())
        content->layout()->setContentsMargins(panelGap, panelGap, panelGap, panelGap);
    area_ = new ContentArea(content);
    layout->addWidget(area_, 1);
    // The way out stays in sight.
    if (auto* buttons = content->findChild<QWidget*>(footName, Qt::FindDirectChildrenOnly)) {
        layout->addWidget(rule());
        layout->addWidget(buttons);
        buttons->layout()->setContentsMargins(panelGap, panelGap, panelGap, panelGap);
    }
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
        bar->setObjectName(model.toolbarName);
        layout->insertWidget(0, bar);
        binder_->buildToolbar(*bar, model.toolbar);
    }
    connect(binder_, &ScreenBinder::closed, this, &QDialog::accept);
    connect(binder_, &ScreenBinder::shown, this, settleLayouts);
}

/// Where there is less room than that, it is scrolled.
void WorksheetDialog::give(const QSize& wanted) {
    const QSize room = roomFor(*this).boundedTo(screen()->availableSize() - edge);
    const int bar = wanted.height() > room.height() ? area_->barWidth() : 0;
    const QSize least = layout()->minimumSize().expandedTo(
        {0, std::min(leastHeight, std::min(wanted.height(), room.height()))});
    wanted_ = wanted;
    given_ = (wanted + QSize(bar, 0)).boundedTo(room).expandedTo(least);
    setMinimumSize(least);
    resize(given_);
}

/// A part that is shown or hidden makes the screen larger or smaller by what it needs, but never larger than
/// the desktop. What the user has made of the size stays.
void WorksheetDialog::followContent() {
    const QSize hint = sizeHint();
    if (!isVisible() || work_ || hint == content_) return;
    const QSize before = size() == given_ ? wanted_ : size();
    give(before + hint - content_);
    content_ = hint;
    keepOnDesktop(*this);
}

bool WorksheetDialog::event(QEvent* event) {
    const bool handled = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest) followContent();
    return handled;
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

QSize WorksheetDialog::sizeHint() const {
    return QDialog::sizeHint().expandedTo(preferredSize(area_->widget()));
}

void WorksheetDialog::reject() {
    binder_->close(Way::Cancel);
}

void WorksheetDialog::showEvent(QShowEvent* event) {
    if (!event->spontaneous() && content_.isEmpty()) {
        settleLayouts();
        content_ = sizeHint();
        give(content_);
        // The frame counts as well, once there is one.
        QMetaObject::invokeMethod(
            this, [this] { keepOnDesktop(*this); }, Qt::QueuedConnection);
    }
    QDialog::showEvent(event);
    if (!focusWidget()) {
        // A screen without controls has the focus itself: a menu that was opened by its letter gives it back.
        QWidget* first = firstToUse(*area_->widget());
        (first ? first : this)->setFocus(Qt::TabFocusReason);
    }
    if (!work_ || event->spontaneous()) return;
    // A progress screen does not change its size while its texts do, and stands where it is seen.
    setFixedSize(size());
    const QRect behind =
        parentWidget() ? parentWidget()->window()->frameGeometry() : screen()->availableGeometry();
    move(behind.center() - rect().center());
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
