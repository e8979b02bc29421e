// A modal screen over a worksheet.
#pragma once

#include "screens/QtInteraction.h"

#include <QDialog>
#include <functional>

namespace metrisk {

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

    /// The close box and Escape: Cancel.
    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void followContent();

    ScreenBinder* binder_;
    std::function<void()> work_;
    QSize content_; // the size that the shown parts ask for
};

} // namespace metrisk
