// The screen FAFORM: Consumer's or Producer's false accept risk.
#pragma once

#include "risk/FalseAcceptScreen.h"

#include <QDialog>

class QCheckBox;
class QRadioButton;

namespace metrisk {

class FalseAcceptDialog final : public QDialog {
    Q_OBJECT

  public:
    FalseAcceptDialog(FalseAcceptScreen& model, QWidget* parent);

    /// Both ways out ask about a change first.
    void accept() override { leave(); }
    void reject() override { leave(); }

  private:
    void leave();

    FalseAcceptScreen& model_;
    QRadioButton* consumer_;
    QRadioButton* producer_;
    QCheckBox* setDefault_;
};

/// Shows the screen over `parent` until it has been left.
void runFalseAcceptDialog(FalseAcceptScreen& model, QWidget* parent);

} // namespace metrisk
