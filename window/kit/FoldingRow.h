// Widgets beside each other, or one under the other where there is no room for that.
#pragma once

#include <QWidget>
#include <initializer_list>

class QBoxLayout;

namespace metrisk {

class FoldingRow final : public QWidget {
    Q_OBJECT

  public:
    explicit FoldingRow(std::initializer_list<QWidget*> widgets);

    QSize sizeHint() const override;
    /// As narrow as the widest of them.
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    int widthBeside() const;
    bool isFolded() const;

    QBoxLayout* layout_;
};

} // namespace metrisk
