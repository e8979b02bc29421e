#include "shell/screens/MainWindow.h"

#include "model/Session.h"
#include "risk/ComputePipeline.h"
#include "screens/EntryBox.h"
#include "screens/Widgets.h"
#include "shell/mainscreen/MainDisplay.h"
#include "shell/mainscreen/ToleranceOptions.h"
#include "shell/screens/MainPanels.h"
#include "shell/screens/QtInteraction.h"
#include "shell/screens/WindowCommands.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QToolBar>
#include <algorithm>

namespace metrisk {

namespace {

void setText(QWidget* widget, const std::string& text) {
    QString shown = qt(text);
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
        if (edit->text() != shown) edit->setText(shown);
        if (edit->cursorPosition() != 0) edit->setCursorPosition(0);
        return;
    }
    shown = shown.trimmed();
    if (auto* label = qobject_cast<QLabel*>(widget)) {
        if (label->text() != shown) label->setText(shown);
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        if (button->text() != shown) button->setText(shown);
    }
}

void setEmphasis(QWidget* widget, bool on) {
    QFont font = widget->font();
    if (font.bold() == on) return;
    font.setBold(on);
    widget->setFont(font);
}

/// Touches what differs and nothing else: each touch costs a layout or a repaint.
void apply(QWidget* widget, const ControlState& state) {
    if (state.text) setText(widget, *state.text);
    if (auto* button = qobject_cast<QAbstractButton*>(widget); button && state.checked)
        button->setChecked(*state.checked);
    if (widget->isHidden() == state.visible) widget->setVisible(state.visible);
    if (widget->testAttribute(Qt::WA_ForceDisabled) == state.enabled) widget->setEnabled(state.enabled);
    // A plain box is a result, which is never typed into.
    if (auto* box = qobject_cast<QLineEdit*>(widget))
        showLocked(box, state.locked || !qobject_cast<EntryBox*>(box));
    if (qobject_cast<QLabel*>(widget) && widget->objectName().startsWith("pnl_RiskLabel"))
        setEmphasis(widget, state.emphasised);
}

} // namespace

MainWindow::MainWindow(Session& session, QtInteraction& ui) : session_(session), ui_(ui), model_(session) {
    setObjectName("MainScreen");
    setAcceptDrops(true);
    setWindowIcon(QIcon(":/icons/metrisk.svg"));
    buildPanels();
    commands_ = std::make_unique<WindowCommands>(*this, session);
    for (QWidget* widget : findChildren<QWidget*>())
        if (!widget->objectName().isEmpty()) controls_.insert(widget->objectName(), widget);
    bindBoxes();
    bindOptions();

    ui_.setMainWindow(this);
    // A load repaints once it is complete; half a record is nothing to look at.
    const auto repaint = [this] {
        if (!session_.record.LoadInProgress) repaintRecord();
    };
    ui_.onRepaint = ui_.onRatiosChanged = repaint;
    ui_.onStatus = [this](const std::string& text) { statusBar()->showMessage(qt(text)); };
    ui_.onHighlight = [this](const std::string& panel) { showHighlight(panel); };
    repaintRecord();
}

MainWindow::~MainWindow() {
    ui_.setMainWindow(nullptr);
    ui_.onRepaint = ui_.onRatiosChanged = nullptr;
    ui_.onStatus = ui_.onHighlight = nullptr;
}

void MainWindow::buildPanels() {
    auto* controls = named(new QWidget, "pnl_Controls");
    auto* grid = new QGridLayout(controls);
    grid->setContentsMargins(8, 4, 8, 4);
    grid->setVerticalSpacing(4);
    grid->addWidget(makeIdentificationPanel(), 1, 0, 1, 3);
    grid->addWidget(makeSubjectPanel(), 2, 0, 1, 3);
    grid->addWidget(makeMeasuringPanel(), 3, 0, 1, 3);
    grid->addWidget(makeComputedRisksPanel(), 4, 0);
    grid->addWidget(makeBaselineRisksPanel(), 4, 1);
    grid->addWidget(makeOptionsPanel(), 4, 2);
    for (int column : {0, 1, 2}) grid->setColumnStretch(column, 1);
    // Centred on a large screen, and not wider than the eye follows a line.
    for (int row : {0, 5}) grid->setRowStretch(row, 1);
    controls->setMaximumWidth(controls->fontMetrics().averageCharWidth() * 210);

    // Takes the focus when an entry is to be committed without going anywhere.
    auto* lostFocus = named(new QLineEdit(controls), "txt_LostFocus");
    lostFocus->setFixedSize(0, 0);
    lostFocus->setFocusPolicy(Qt::ClickFocus);

    auto* scroll = new QScrollArea;
    scroll->setWidget(controls);
    scroll->setWidgetResizable(true);
    scroll->setAlignment(Qt::AlignHCenter);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    setCentralWidget(scroll);
    controls_.insert("pnl_Controls", controls);
    statusBar()->setObjectName("statusBar");
}

void MainWindow::bindBoxes() {
    for (EntryBox* box : findChildren<EntryBox*>()) {
        const std::string name = box->objectName().toStdString();
        connect(box, &EntryBox::entered, this, [this, box, name] {
            if (committing_) return;
            model_.gotFocus(name, box->text().toStdString());
        });
        connect(box, &EntryBox::keyPressed, this, [this, name] { model_.keyPressed(name); });
        connect(box, &EntryBox::textEdited, this, [this, name](const QString& text) {
            showHighlight("");
            model_.edited(name, text.toStdString());
        });
        connect(box, &EntryBox::left, this, [this, box] { leave(box); });
    }
}

void MainWindow::bindOptions() {
    const auto onClick = [this](const char* name, auto action) {
        auto* button = qobject_cast<QAbstractButton*>(controls_.value(name));
        connect(button, &QAbstractButton::clicked, this, [this, action](bool checked) {
            if (painting_) return;
            action(checked);
            repaintRecord();
        });
    };
    onClick("TwoSideOption", [this](bool) { chooseTolerance(session_, ToleranceKind::TwoSided); });
    onClick("SingleUpperOption", [this](bool) { chooseTolerance(session_, ToleranceKind::SingleUpper); });
    onClick("SingleLowerOption", [this](bool) { chooseTolerance(session_, ToleranceKind::SingleLower); });
    onClick("chk_Symmetric", [this](bool on) { chk_Symmetric_Click(session_, on); });
    onClick("PhysLimitRequired", [this](bool on) { PhysLimitRequired_Click(session_, on); });
    onClick("optOffsets_0", [this](bool) { optOffsets_Click(session_, 0); });
    onClick("optOffsets_1", [this](bool) { optOffsets_Click(session_, 1); });
    onClick("optGuardbands_0", [this](bool) { model_.guardbandsAsLimits = true; });
    onClick("optGuardbands_1", [this](bool) { model_.guardbandsAsLimits = false; });
    onClick("chk_IncludeGuardbands", [this](bool on) { chk_IncludeGuardbands_Click(session_, on); });
    onClick("chk_SymmetricGBands", [this](bool on) { chk_SymmetricGBands_Click(session_, on); });
    onClick("chk_IncludeUncertainty", [this](bool on) { chk_IncludeUncertainty_Click(session_, on); });
    onClick("ComputeResults", [this](bool) {
        QWidget* button = controls_.value("ComputeResults");
        button->setEnabled(false);
        ComputeResults_Click(session_);
        button->setEnabled(true);
    });
    onClick("cmd_Baseline", [this](bool) { commands_->run("BaselineAnalysisScreen"); });
}

bool MainWindow::leave(EntryBox* box) {
    if (committing_) return true; // a message of the rule itself has taken the focus
    committing_ = box;
    const FieldResult result = model_.lostFocus(box->objectName().toStdString(), box->text().toStdString());
    box->setModified(false);
    committing_ = nullptr;
    repaintRecord();
    if (!result.stay) return true;
    box->setText(qt(result.text));
    // The focus is still on its way to the next control; it comes back once it has arrived.
    QMetaObject::invokeMethod(
        box,
        [this, box] {
            box->setFocus(Qt::OtherFocusReason);
            box->selectAll();
            model_.gotFocus(box->objectName().toStdString(), box->text().toStdString());
        },
        Qt::QueuedConnection);
    return false;
}

bool MainWindow::commitEntry() {
    auto* box = qobject_cast<EntryBox*>(focusWidget());
    if (!box || !box->isModified()) return true;
    if (!leave(box)) return false;
    model_.gotFocus(box->objectName().toStdString(), box->text().toStdString());
    return true;
}

void MainWindow::repaintRecord() {
    if (painting_) return;
    painting_ = true;
    const QWidget* typing = focusWidget();
    for (const auto& [name, state] : mainDisplay(session_, model_.guardbandsAsLimits)) {
        QWidget* widget = controls_.value(qt(name));
        if (!widget) continue;
        const auto* box = qobject_cast<const EntryBox*>(widget);
        if (box && box == typing && box->isModified()) continue;
        apply(widget, state);
    }
    setWindowTitle(qt(mainCaption(session_)));
    painting_ = false;
}

void MainWindow::showHighlight(const std::string& panel) {
    if (highlighted_) highlighted_->setStyleSheet({});
    highlighted_ = nullptr;
    if (panel.empty()) return;
    // The label above the box stands for its panel.
    static const QHash<QString, QString> labels = {{"pnl_MTEOffset", "pnl_MTELimit"},
                                                   {"pnl_MTEFixedOffset", "pnl_MTEFixed"},
                                                   {"pnl_MTEPctInTol", "LbL_MTEPctInTol"}};
    highlighted_ = controls_.value(labels.value(qt(panel), qt(panel)));
    if (highlighted_)
        highlighted_->setStyleSheet("background: palette(highlight); color: palette(highlighted-text);");
}

void MainWindow::openAtStart(const QString& path) {
    commands_->openAtStart(path);
}

void MainWindow::setPlaces(const Places& places) {
    commands_->setPlaces(places);
}

QSize MainWindow::sizeHint() const {
    const QSize content = controls_.value("pnl_Controls")->sizeHint();
    const int bars = menuBar()->sizeHint().height() + statusBar()->sizeHint().height() +
                     findChild<QToolBar*>("tb_Main")->sizeHint().height();
    const QSize wanted(std::max(content.width(), 980), content.height() + bars + 4);
    return wanted.boundedTo(QWidget::screen()->availableSize());
}

QLineEdit* MainWindow::activeBox() const {
    return qobject_cast<QLineEdit*>(focusWidget());
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !controls_.isEmpty())
        QMetaObject::invokeMethod(this, &MainWindow::repaintRecord, Qt::QueuedConnection);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (commands_->mayExit())
        event->accept();
    else
        event->ignore();
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
        this, [this, path] { commands_->openFile(path); }, Qt::QueuedConnection);
}

} // namespace metrisk
