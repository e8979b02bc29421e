#include "screens/Widgets.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace metrisk {

QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString caption(std::string_view text) {
    return qt(text).trimmed();
}

void nameWidget(QWidget* widget, const QString& name, const QString& toolTip) {
    widget->setObjectName(name);
    if (!toolTip.isEmpty()) {
        widget->setToolTip(toolTip);
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        if ((!button || button->text().isEmpty()) && !qobject_cast<QLabel*>(widget))
            widget->setAccessibleName(toolTip);
    }
}

void showLocked(QLineEdit* box, bool locked) {
    if (box->isReadOnly() != locked) box->setReadOnly(locked);
    box->setFocusPolicy(locked ? Qt::ClickFocus : Qt::StrongFocus);
    const QColor ground = QApplication::palette().color(locked ? QPalette::Window : QPalette::Base);
    if (box->testAttribute(Qt::WA_SetPalette) == locked && box->palette().color(QPalette::Base) == ground)
        return;
    QPalette own; // everything that is not set here goes on following the desktop
    if (locked) own.setColor(QPalette::Base, ground);
    box->setPalette(own);
}

QDialogButtonBox* okCancelButtons(QDialog* dialog) {
    auto* buttons = new QDialogButtonBox;
    QPushButton* ok =
        named(buttons->addButton("&OK", QDialogButtonBox::AcceptRole), "mnu_Exit_0", "Keep the changes");
    named(buttons->addButton("&Cancel", QDialogButtonBox::RejectRole), "mnu_Exit_1", "Leave without them");
    ok->setDefault(true);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}

} // namespace metrisk
