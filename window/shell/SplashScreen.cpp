#include "window/shell/SplashScreen.h"

#include "base/Clock.h"
#include "base/NumberText.h"
#include "window/kit/ToolIcon.h"
#include "window/kit/Widgets.h"

#include <QEvent>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace metrisk {

namespace {

constexpr const char* product = "Metrisk";

} // namespace

SplashScreen::SplashScreen(const Regional& regional, const Moment& now) : QDialog(nullptr, Qt::SplashScreen) {
    setObjectName("Copyright");
    setAttribute(Qt::WA_QuitOnClose, false);
    const auto label = [](const char* name, const QString& text) {
        auto* made = new QLabel(text);
        made->setObjectName(name);
        made->setAlignment(Qt::AlignCenter);
        return made;
    };
    auto* picture = new QLabel;
    picture->setPixmap(programIcon().pixmap(96, 96));
    picture->setAlignment(Qt::AlignCenter);
    auto* name = label("ProductPanel", product);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    large.setBold(true);
    name->setFont(large);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(32, 24, 32, 24);
    layout->addWidget(picture);
    layout->addWidget(name);
    layout->addWidget(label("VersionPanel", QString("Version ") + METRISK_VERSION));
    layout->addWidget(label("DatePanel", qt(longDate(now))));
    layout->addWidget(label("TimePanel", qt(FormatNumber(now.time, "h:mm AM/PM", regional))));
    layout->addWidget(label("LoadingBox", QString("Loading ") + product));
    setWindowTitle(QString("Loading ") + product);
}

void SplashScreen::closeWith(QWidget& window, int atMost) {
    window.installEventFilter(this);
    QTimer::singleShot(atMost, this, &QWidget::close);
}

bool SplashScreen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint && isVisible())
        QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
    return QDialog::eventFilter(watched, event);
}

void SplashScreen::keyPressEvent(QKeyEvent*) {
    close();
}

void SplashScreen::mousePressEvent(QMouseEvent*) {
    close();
}

} // namespace metrisk
