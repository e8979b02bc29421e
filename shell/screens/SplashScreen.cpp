#include "shell/screens/SplashScreen.h"

#include "model/NumberText.h"
#include "screens/Widgets.h"

#include <QDate>
#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QTime>
#include <QVBoxLayout>

namespace metrisk {

namespace {

constexpr const char* product = "Metrisk";

} // namespace

SplashScreen::SplashScreen(const Regional& regional) : QDialog(nullptr, Qt::SplashScreen) {
    setObjectName("Copyright");
    const auto label = [](const char* name, const QString& text) {
        auto* made = named(new QLabel(text), name);
        made->setAlignment(Qt::AlignCenter);
        return made;
    };
    auto* picture = new QLabel;
    picture->setPixmap(QIcon(":/icons/metrisk.svg").pixmap(96, 96));
    picture->setAlignment(Qt::AlignCenter);
    auto* name = label("ProductPanel", product);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    large.setBold(true);
    name->setFont(large);

    const double day = QTime::currentTime().msecsSinceStartOfDay() / (24.0 * 60 * 60 * 1000);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(32, 24, 32, 24);
    layout->addWidget(picture);
    layout->addWidget(name);
    layout->addWidget(label("VersionPanel", QString("Version ") + METRISK_VERSION));
    // Month names are English like every other text of the program.
    layout->addWidget(label("DatePanel", QLocale::c().toString(QDate::currentDate(), "MMMM d, yyyy")));
    layout->addWidget(label("TimePanel", qt(FormatNumber(day, "h:mm AM/PM", regional))));
    layout->addWidget(label("LoadingBox", QString("Loading ") + product));
    setWindowTitle(QString("Loading ") + product);
}

} // namespace metrisk
