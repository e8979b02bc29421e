// A modal screen over a worksheet.
#pragma once

#include "window/kit/QtInteraction.h"

#include <QDialog>
#include <functional>

namespace metrisk {

class ContentArea;
class Worksheet;

class WorksheetDialog final : public QDialog {
    Q_OBJECT

  public:
    WorksheetDialog(Worksheet& model, const LayoutOf& layoutOf, QWidget* parent);

    ScreenBinder& binder() { return *binder_; }

    /// Returns when the worksheet has been left, or when `work`, which starts once the screen is seen, is
    /// done.
    void run(const std::function<void()>& work);

    /// Becomes a screen of that parent, in its place on the desktop.
    void standOver(QWidget* parent, Qt::WindowModality modality);

    QSize sizeHint() const override;

    /// The close box and Escape: Cancel.
    void reject() override;

  protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void followContent();
    void give(const QSize& wanted);

    ContentArea* area_;
    ScreenBinder* binder_;
    std::function<void()> work_;
    QSize content_; // what the shown parts ask for
    QSize wanted_;  // what the screen would have on a larger desktop
    QSize given_;   // what it has been given
};

} // namespace metrisk
