#include "risk/screens/EqRatioDialog.h"

#include "screens/Widgets.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace metrisk {

namespace {

QGroupBox* group(const char* title, std::initializer_list<QWidget*> members) {
    auto* box = new QGroupBox(title);
    auto* layout = new QVBoxLayout(box);
    for (QWidget* member : members) layout->addWidget(member);
    return box;
}

} // namespace

EqRatioDialog::EqRatioDialog(Session& session, QWidget* parent) : QDialog(parent), model_(session) {
    setObjectName("EqRatio");
    setWindowTitle("Equivalent Accuracy Ratio");
    for (int i : {0, 1})
        compute_[i] =
            named(new QRadioButton(caption(EqRatioScreen::opt_Compute[i])), QString("opt_Compute_%1").arg(i),
                  "Compute the equivalent accuracy ratio with the risks");
    falseAccept_ = named(new QRadioButton(caption(EqRatioScreen::OptFalseAcceptCaption)), "OptFalseAccept",
                         "Find the baseline ratio with the same false accept risk");
    falseReject_ = named(new QRadioButton(caption(EqRatioScreen::OptFalseRejectCaption)), "OptFalseReject",
                         "Find the baseline ratio with the same false reject risk");
    beep_ = named(new QCheckBox(caption(EqRatioScreen::BeepOnCaption)), "BeepOn", "Beep when a compute ends");
    compute_[model_.computeRatio ? 0 : 1]->setChecked(true);
    (model_.OptFalseAccept ? falseAccept_ : falseReject_)->setChecked(true);
    beep_->setChecked(model_.BeepOn);

    auto* buttons = okCancelButtons(this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(group("Compute equivalent accuracy ratio?", {compute_[0], compute_[1]}));
    layout->addWidget(group("Base the ratio on", {falseAccept_, falseReject_}));
    layout->addWidget(beep_);
    layout->addWidget(buttons);
}

void EqRatioDialog::commit() {
    model_.computeRatio = compute_[0]->isChecked();
    model_.OptFalseAccept = falseAccept_->isChecked();
    model_.BeepOn = beep_->isChecked();
}

void EqRatioDialog::accept() {
    commit();
    model_.ok();
    QDialog::accept();
}

void EqRatioDialog::reject() {
    commit();
    if (model_.cancel()) QDialog::reject();
}

} // namespace metrisk
