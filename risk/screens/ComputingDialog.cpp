#include "risk/screens/ComputingDialog.h"

#include "risk/ComputingScreen.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>

namespace metrisk {

namespace {

QLabel* namedLabel(const char* name, const QString& text = {}) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

ComputingDialog::ComputingDialog(ComputingScreen& screen, std::function<void()> step, QWidget* parent)
    : QDialog(parent), screen_(screen), step_(std::move(step)),
      wait_(namedLabel("Label1", ComputingScreen::Label1)), message1_(namedLabel("Lbl_Message1")),
      message2_(namedLabel("Lbl_Message2")),
      meterTitle_(namedLabel("Lbl_MeterTitle", ComputingScreen::Lbl_MeterTitle)), meter_(new QProgressBar),
      cancel_(new QPushButton(tr("Cancel"))) {
    setObjectName("Computing");
    setWindowTitle("Computing");
    setModal(true);
    meter_->setObjectName("Meter");
    meter_->setAccessibleName("Precision of solution");
    meter_->setRange(0, 100);
    cancel_->setObjectName("Cmd_Cancel");
    cancel_->setToolTip("Stop the search; the risks stay");
    QFont bold = wait_->font();
    bold.setBold(true);
    wait_->setFont(bold);

    auto* layout = new QVBoxLayout(this);
    for (QWidget* widget : std::initializer_list<QWidget*>{wait_, message1_, message2_, meterTitle_, meter_})
        layout->addWidget(widget);
    layout->addWidget(cancel_, 0, Qt::AlignHCenter);
    // Room for the longest texts, so that the screen does not jump while the search runs.
    setMinimumWidth(fontMetrics().averageCharWidth() * 56);
    message1_->setMinimumHeight(fontMetrics().lineSpacing() * 2);
    message2_->setMinimumHeight(fontMetrics().lineSpacing() * 2);

    connect(cancel_, &QPushButton::clicked, this, [this] {
        screen_.Cmd_Cancel_Click();
        showScreen();
    });
    showScreen();
}

void ComputingDialog::showScreen() {
    message1_->setText(QString::fromStdString(screen_.Lbl_Message1));
    message2_->setText(QString::fromStdString(screen_.searchVisible ? screen_.Lbl_Message2 : ""));
    meterTitle_->setVisible(screen_.searchVisible);
    meter_->setVisible(screen_.searchVisible);
    meter_->setValue(static_cast<int>(std::lround(screen_.Meter)));
    cancel_->setEnabled(screen_.cancelEnabled);
}

void ComputingDialog::reject() {
    screen_.Cmd_Cancel_Click();
    showScreen();
}

void ComputingDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (started_) return;
    started_ = true;
    QTimer::singleShot(0, this, &ComputingDialog::run);
}

void ComputingDialog::run() {
    step_();
    accept();
}

} // namespace metrisk
