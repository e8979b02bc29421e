#include "risk/screens/FalseAcceptDialog.h"

#include "screens/Widgets.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace metrisk {

FalseAcceptDialog::FalseAcceptDialog(FalseAcceptScreen& model, QWidget* parent)
    : QDialog(parent), model_(model),
      consumer_(named(new QRadioButton(caption(FalseAcceptScreen::ConsumerRiskOptionCaption)),
                      "ConsumerRiskOption", "The risk that an accepted unit is out of tolerance")),
      producer_(named(new QRadioButton(caption(FalseAcceptScreen::ProducerRiskOptionCaption)),
                      "ProducerRiskOption", "The risk that a unit is out of tolerance and accepted")),
      setDefault_(named(new QCheckBox(caption(FalseAcceptScreen::Chk_SetDefaultCaption)), "Chk_SetDefault",
                        "New analyses start with this option")) {
    setObjectName("FAFORM");
    setWindowTitle("False Accept Risk Option");
    (model_.ProducerRiskOption ? producer_ : consumer_)->setChecked(true);

    auto* group = new QGroupBox("False accept risk");
    auto* options = new QVBoxLayout(group);
    options->addWidget(consumer_);
    options->addWidget(producer_);
    auto* close = named(new QPushButton("&Close"), "cmd_Close", "Leave this screen");
    close->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(group);
    layout->addWidget(setDefault_);
    layout->addWidget(close, 0, Qt::AlignRight);

    connect(consumer_, &QRadioButton::clicked, this, [this] { model_.chooseConsumer(); });
    connect(producer_, &QRadioButton::clicked, this, [this] { model_.chooseProducer(); });
    connect(setDefault_, &QCheckBox::toggled, this, [this](bool on) { model_.Chk_SetDefault = on; });
    connect(close, &QPushButton::clicked, this, &FalseAcceptDialog::leave);
}

void FalseAcceptDialog::leave() {
    if (model_.leave()) QDialog::accept();
}

void runFalseAcceptDialog(FalseAcceptScreen& model, QWidget* parent) {
    FalseAcceptDialog(model, parent).exec();
}

} // namespace metrisk
