#include "window/shell/MainWindow.h"

#include "desk/kit/Session.h"
#include "desk/shell/Toolbar.h"
#include "window/kit/DesktopFit.h"
#include "window/kit/LookStyle.h"
#include "window/kit/QtInteraction.h"
#include "window/kit/ScreenBinder.h"
#include "window/kit/Widgets.h"
#include "window/shell/Layouts.h"
#include "window/shell/UnsavedWork.h"

#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollArea>
#include <QStatusBar>
#include <QToolBar>
#include <algorithm>

namespace metrisk {

MainWindow::MainWindow(Session& session, QtInteraction& ui)
    : session_(session), ui_(ui), chooser_(this), carrier_(ui, socketFolder()),
      errorLedger_(session, carrier_), model_(session), commands_(session, model_, chooser_) {
    setObjectName(model_.name);
    session_.desktop = &desktop_;
    setAcceptDrops(true);
    auto* scroll = new QScrollArea;
    scroll->setWidget(layoutMainScreen(WidgetMaker(model_)));
    scroll->setWidgetResizable(true);
    scroll->setAlignment(Qt::AlignHCenter);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    setCentralWidget(scroll);
    nextStep_ = new QLabel;
    nextStep_->setObjectName("nextStep");
    nextStep_->setTextFormat(Qt::PlainText);
    statusBar()->setObjectName("statusBar");
    statusBar()->addWidget(nextStep_);
    for (QLabel* label : {area_ = new QLabel, agreement_ = new QLabel}) {
        label->setTextFormat(Qt::PlainText);
        label->setForegroundRole(captionRole());
        statusBar()->addPermanentWidget(label);
    }

    binder_ = new ScreenBinder(*this, model_);
    binder_->buildMenus(*menuBar());
    buildToolbar();
    connect(binder_, &ScreenBinder::shown, this, [this] {
        showStatus();
        setWindowModified(session_.record.FileChanged);
    });
    connect(binder_, &ScreenBinder::closed, this, &QWidget::close);
    showStatus();
    ui_.setMainScreen(binder_);
    ui_.onStatus = [this](const std::string& text) { statusBar()->showMessage(qt(text)); };
    looks_.ApplyColorScheme(session_.colorScheme);
    focusFirst();
}

MainWindow::~MainWindow() {
    session_.desktop = nullptr;
    ui_.setMainScreen(nullptr);
    ui_.onStatus = nullptr;
}

/// Where an empty analysis begins; one with figures shows whose they are.
void MainWindow::focusFirst() {
    const bool empty = model_.ModeBox.text.empty() || !model_.pnl_IDData.visible;
    binder_->focus(empty ? model_.ModeBox.name : model_.SystemIDBox.name, false);
}

void MainWindow::showStatus() {
    nextStep_->setText(qt(model_.nextStep));
    area_->setText(qt(model_.area));
    agreement_->setText(qt(model_.agreement));
}

void MainWindow::buildToolbar() {
    QToolBar* bar = addToolBar("Toolbar");
    bar->setObjectName("tb_Main");
    bar->setMovable(false);
    binder_->buildToolbar(*bar, mainToolbar());
}

void MainWindow::openFile(const QString& path) {
    binder_->perform([&] { commands_.openPath(path.toStdString()); });
}

void MainWindow::openAtStart(const QString& path) {
    binder_->perform([&] { commands_.openAtStart(path.toStdString()); });
}

void MainWindow::keepUnsavedWork(const std::filesystem::path& folder) {
    unsaved_ = std::make_unique<UnsavedWork>(session_, model_, commands_.points, *binder_, folder);
    commands_.files.settled = [this] { unsaved_->recovery.remove(); };
}

void MainWindow::offerUnsavedWork() {
    binder_->perform([this] {
        unsaved_->recovery.offer([this] { commands_.files.showOpened(); });
        if (unsaved_->points.offer()) commands_.showPoints();
    });
}

bool MainWindow::endOfDesktop() {
    if (unsaved_) unsaved_->update(); // what is asked may not be answered in time
    return close();
}

QSize MainWindow::sizeHint() const {
    constexpr QSize opened(1016, 712); // with a font of usual size all is seen on a desktop of 1024 x 768
    constexpr int spare = 16;          // a scroll bar covers nothing
    const QWidget* content = static_cast<QScrollArea*>(centralWidget())->widget();
    const int bars = menuBar()->sizeHint().height() + statusBar()->sizeHint().height() +
                     findChild<QToolBar*>("tb_Main")->sizeHint().height();
    const int width = std::max(content->minimumSizeHint().width() + spare, opened.width());
    // Captions that fold make the least width the highest.
    const int height = content->layout()->totalHeightForWidth(width) + bars;
    return QSize(width, std::max(height, opened.height())).boundedTo(roomFor(*this));
}

/// The icons are as large as usual where the window has room for all of them, else as large as it has.
void MainWindow::fitToolbar() {
    constexpr int least = 16;
    auto* bar = findChild<QToolBar*>("tb_Main");
    const auto actions = bar->actions();
    const int icons = std::max(
        1, int(std::ranges::count_if(actions, [](const QAction* each) { return !each->isSeparator(); })));
    const int usual = ScreenBinder::toolIconSize(*bar), present = bar->iconSize().width();
    const int excess = bar->sizeHint().width() + icons * (usual - present) - width();
    const int size = std::clamp(usual - (std::max(excess, 0) + icons - 1) / icons, least, usual);
    if (size != present) bar->setIconSize({size, size});
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    fitToolbar();
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (event->spontaneous()) return;
    // The frame counts as well, once there is one.
    QMetaObject::invokeMethod(
        this, [this] { keepOnDesktop(*this); }, Qt::QueuedConnection);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(binder_->close(Way::Ok));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.first().isLocalFile()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    const QString path = event->mimeData()->urls().first().toLocalFile();
    // The program that the file came from waits until the drop is done; boxes come after it.
    QMetaObject::invokeMethod(
        this, [this, path] { openFile(path); }, Qt::QueuedConnection);
}

} // namespace metrisk
