#include "window/kit/QtInteraction.h"

#include "window/kit/DialogOver.h"
#include "window/kit/PrintPicture.h"
#include "window/kit/ScreenBinder.h"
#include "window/kit/Widgets.h"
#include "window/kit/WorksheetDialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QTimer>

namespace metrisk {

namespace {

QMessageBox::Icon iconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Information: return QMessageBox::Information;
    case BoxIcon::Exclamation: return QMessageBox::Warning;
    case BoxIcon::Question: return QMessageBox::Question;
    case BoxIcon::Critical: return QMessageBox::Critical;
    case BoxIcon::None: break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case BoxButtons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case BoxButtons::Ok: break;
    }
    return QMessageBox::Ok;
}

/// A closed box counts as its Cancel, or as No where there is no Cancel.
Answer answerOf(int pressed, BoxButtons buttons) {
    switch (pressed) {
    case QMessageBox::Ok: return Answer::Ok;
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    default: break;
    }
    if (buttons == BoxButtons::Ok) return Answer::Ok;
    return buttons == BoxButtons::YesNo ? Answer::No : Answer::Cancel;
}

/// The wait pointer rests while the user is asked.
class PointerRest {
  public:
    PointerRest() {
        while (QApplication::overrideCursor()) {
            ++depth_;
            QApplication::restoreOverrideCursor();
        }
    }
    ~PointerRest() {
        while (depth_-- > 0) QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    PointerRest(const PointerRest&) = delete;
    PointerRest& operator=(const PointerRest&) = delete;

  private:
    int depth_ = 0;
};

} // namespace

QtInteraction::QtInteraction(LayoutOf layoutOf) : layoutOf_(std::move(layoutOf)) {}

QtInteraction::~QtInteraction() = default;

void QtInteraction::setMainScreen(ScreenBinder* screen) {
    open_.clear();
    if (screen) open_.push_back(screen);
}

const Worksheet* QtInteraction::top() const {
    const QWidget* front = owner();
    for (ScreenBinder* each : open_)
        if (&each->window() == front) return &each->model();
    return open_.empty() ? nullptr : &open_.back()->model();
}

/// Never the help window: it may be closed while the box stands.
QWidget* QtInteraction::owner() const {
    return open_.empty() ? nullptr : screenInFront(&open_.front()->window());
}

void QtInteraction::flush() {
    for (ScreenBinder* screen : open_) screen->flush();
}

Answer QtInteraction::show(const Box& box) {
    flush();
    const PointerRest rest;
    QMessageBox message(iconOf(box.icon), qt(box.title), qt(box.text), buttonsOf(box.buttons), owner());
    message.setTextFormat(Qt::PlainText);
    for (const auto& [button, words] :
         {std::pair{QMessageBox::Yes, &box.yesCaption}, {QMessageBox::No, &box.noCaption}})
        if (QAbstractButton* shown = message.button(button); shown && !words->empty())
            shown->setText(qt(*words));
    message.setTextInteractionFlags(Qt::TextSelectableByMouse);
    return answerOf(runOver(message), box.buttons);
}

void QtInteraction::run(Worksheet& screen, const std::function<void()>& work) {
    flush();
    {
        QWidget* parent = owner();
        WorksheetDialog dialog(screen, layoutOf_, parent);
        const std::size_t first = companions_.size();
        running_.push_back(&dialog);
        open_.push_back(&dialog.binder());
        const PointerRest rest;
        dialog.run(work);
        forget(&dialog.binder());
        running_.pop_back();
        waitForCompanions(first, parent);
    }
    if (QWidget* window = owner()) window->activateWindow();
}

void QtInteraction::forget(ScreenBinder* screen) {
    std::erase(open_, screen);
}

/// One of those that are left takes the place of the screen that has gone, so that the parent goes on
/// waiting.
void QtInteraction::waitForCompanions(std::size_t first, QWidget* parent) {
    for (std::size_t i = first; i < companions_.size(); ++i) {
        WorksheetDialog& next = *companions_[i];
        if (!next.isVisible()) continue;
        next.standOver(parent, Qt::WindowModal);
        for (std::size_t j = i + 1; j < companions_.size(); ++j)
            if (companions_[j]->isVisible()) companions_[j]->standOver(&next, Qt::NonModal);
        running_.push_back(&next);
        while (next.isVisible()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        running_.pop_back();
    }
    companions_.erase(companions_.begin() + static_cast<std::ptrdiff_t>(first), companions_.end());
}

/// A modal screen blocks all windows but its children, and a child that is not modal blocks none: the two
/// take input alike.
void QtInteraction::open(Worksheet& screen) {
    flush();
    QWidget* beside = running_.empty() ? owner() : running_.back();
    auto dialog = std::make_unique<WorksheetDialog>(screen, layoutOf_, beside);
    dialog->setWindowModality(Qt::NonModal);
    ScreenBinder* binder = &dialog->binder();
    open_.push_back(binder);
    QObject::connect(dialog.get(), &QDialog::finished, binder, [this, binder] {
        forget(binder);
        if (QWidget* window = owner()) window->activateWindow();
    });
    dialog->show();
    companions_.push_back(std::move(dialog));
}

ScreenBinder* QtInteraction::binderOf(const Worksheet& screen) const {
    for (ScreenBinder* each : open_)
        if (&each->model() == &screen) return each;
    return nullptr;
}

void QtInteraction::placeBeside(Worksheet& left, Worksheet& right) {
    static constexpr int framedAfter = 100; // milliseconds: a window just shown has no frame yet
    const auto stand = [](QWidget& window, bool atRight) {
        const QRect desktop = window.screen()->availableGeometry();
        const QSize frame = window.frameGeometry().size() - window.size();
        const QSize half(desktop.width() / 2, desktop.height() * 95 / 100);
        window.resize(half - frame);
        window.move(atRight ? desktop.left() + half.width() : desktop.left(), desktop.top());
        window.raise();
    };
    const auto place = [stand](QWidget& window, bool atRight) {
        stand(window, atRight);
        QTimer::singleShot(framedAfter, &window, [stand, &window, atRight] { stand(window, atRight); });
    };
    if (ScreenBinder* binder = binderOf(left)) place(binder->window(), false);
    if (ScreenBinder* binder = binderOf(right)) place(binder->window(), true);
}

void QtInteraction::refresh(Worksheet& screen) {
    if (ScreenBinder* binder = binderOf(screen)) {
        binder->repaint();
        binder->flush();
    }
}

void QtInteraction::repaintMainScreen() {
    if (!open_.empty()) open_.front()->repaint();
}

void QtInteraction::focus(const ControlName& control, bool select) {
    for (ScreenBinder* each : open_)
        if (each->model().name == control.screen) each->focus(qt(control.control), select);
}

void QtInteraction::highlight(std::string_view panel) {
    if (!open_.empty()) open_.front()->highlight(qt(panel));
}

void QtInteraction::yield() {
    flush();
    QApplication::processEvents();
}

void QtInteraction::status(std::string_view text) {
    if (onStatus) onStatus(std::string(text));
}

void QtInteraction::help(std::string_view page) {
    if (onHelp) onHelp(std::string(page));
}

void QtInteraction::setBusy(bool busy) {
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

/// A dialog stays above its parent on every desktop, so it fades instead of moving.
void QtInteraction::peekBehind(Worksheet& screen) {
    static constexpr int peekFor = 2500; // milliseconds
    ScreenBinder* binder = binderOf(screen);
    if (!binder) return;
    QWidget& window = binder->window();
    window.setWindowOpacity(0.1);
    QTimer::singleShot(peekFor, &window, [&window] { window.setWindowOpacity(1); });
}

void QtInteraction::beep() {
    QApplication::beep();
}

void QtInteraction::post(std::function<void()> action) {
    QMetaObject::invokeMethod(qApp, std::move(action), Qt::QueuedConnection);
}

bool QtInteraction::perform(Worksheet& screen, const std::function<void()>& action) {
    ScreenBinder* binder = binderOf(screen);
    if (!binder || top() != &screen || binder->isActing()) return false;
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal && modal != &binder->window()) return false;
    return binder->perform(action);
}

void QtInteraction::copyText(std::string_view text) {
    QApplication::clipboard()->setText(qt(text));
}

bool QtInteraction::print(const PictureArea& picture, std::string_view title) {
    flush();
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(qt(title));
    printer.setPageSize(QPageSize(QPageSize::A4)); // whatever the locale's paper is
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, owner());
    {
        const PointerRest rest;
        if (runOver(dialog) != QDialog::Accepted) return true;
    }
    const WaitPointer wait(*this);
    return printPicture(printer, picture);
}

void QtInteraction::copyPicture(const PictureArea& picture) {
    const WaitPointer wait(*this);
    for (ScreenBinder* each : open_)
        if (each->model().find(picture.name) == &picture)
            if (auto* widget = each->window().findChild<QWidget*>(picture.name))
                QApplication::clipboard()->setPixmap(widget->grab());
}

} // namespace metrisk
