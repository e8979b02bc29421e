// The screen BaselineAnalysis: the analysis's reference case beside the default one.
#pragma once

#include "risk/BaselineScreen.h"

#include <QDialog>

class QAction;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace metrisk {

class BaselineDialog final : public QDialog {
    Q_OBJECT

  public:
    /// `showHelp` opens the help page of a name.
    BaselineDialog(BaselineScreen& model, std::function<void(const char*)> showHelp, QWidget* parent);

    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// The widgets of one side, in the order in which they stand.
    struct Side {
        QLineEdit* boxes[6]; // ratio figures, measuring %, subject %, false accept, false reject
        QLabel* acceptUnits;
        QLabel* rejectUnits;
        QLabel* option;
        QLabel* baseline;
    };

    QGroupBox* makeSide(Side& side, bool defaults);
    void buildMenu(std::function<void(const char*)> showHelp);
    void show(const Side& side, const BaselineSide& texts);
    void repaintModel();
    void leave(BaselineBox box);
    void commit();

    BaselineScreen& model_;
    Side analysis_{};
    Side defaults_{};
    QGroupBox* defaultGroup_ = nullptr;
    QRadioButton* user_ = nullptr;
    QRadioButton* z540_ = nullptr;
    QPushButton* compute_ = nullptr;
    QPushButton* retrieve_ = nullptr;
    QPushButton* store_ = nullptr;
    QAction* showDefaults_ = nullptr;
    bool committing_ = false;
};

/// Shows the screen until it has been left.
void runBaselineDialog(BaselineScreen& model, const std::function<void(const char*)>& showHelp,
                       QWidget* parent);

} // namespace metrisk
