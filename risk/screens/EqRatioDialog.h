// The screen EqRatio: options of the equivalent accuracy ratio.
#pragma once

#include "risk/EqRatioScreen.h"

#include <QDialog>

class QCheckBox;
class QRadioButton;

namespace metrisk {

class EqRatioDialog final : public QDialog {
    Q_OBJECT

  public:
    EqRatioDialog(Session& session, QWidget* parent);

    void accept() override;
    void reject() override;

  private:
    void commit();

    EqRatioScreen model_;
    QRadioButton* compute_[2];
    QRadioButton* falseAccept_;
    QRadioButton* falseReject_;
    QCheckBox* beep_;
};

} // namespace metrisk
