// The progress screen Computing: starts its work when first shown and closes when that has ended.
#pragma once

#include <QDialog>
#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace metrisk {

class ComputingScreen;

class ComputingDialog final : public QDialog {
    Q_OBJECT

  public:
    ComputingDialog(ComputingScreen& screen, std::function<void()> step, QWidget* parent);

    /// Shows the texts, meter and button state of the model.
    void showScreen();

    /// Closing counts as Cancel; the screen closes itself when the work has stopped.
    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void run();

    ComputingScreen& screen_;
    std::function<void()> step_;
    bool started_ = false;
    QLabel* wait_;
    QLabel* message1_;
    QLabel* message2_;
    QLabel* meterTitle_;
    QProgressBar* meter_;
    QPushButton* cancel_;
};

} // namespace metrisk
