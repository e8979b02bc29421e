#include "window/kit/WhatsThis.h"

#include "desk/kit/Worksheet.h"

#include <QFile>
#include <QHash>

namespace metrisk {

namespace {

QHash<QString, QString> readTexts() {
    QHash<QString, QString> texts;
    QFile file(":/help/boxes.tsv");
    if (!file.open(QIODevice::ReadOnly)) return texts;
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n'))
        if (const qsizetype tab = line.indexOf('\t'); tab > 0)
            texts.insert(line.left(tab), line.mid(tab + 1));
    return texts;
}

} // namespace

bool takesEntry(const Control& control) {
    if (const auto* box = dynamic_cast<const TextBox*>(&control)) return !box->isResult();
    if (const auto* choice = dynamic_cast<const Choice*>(&control)) return bool(choice->chosen);
    return dynamic_cast<const Memo*>(&control) != nullptr;
}

QString whatsThis(const Worksheet& screen, const Control& control) {
    static const QHash<QString, QString> texts = readTexts();
    if (!takesEntry(control)) return {};
    const QString before = QString(screen.name) + '.';
    const QString name = control.name;
    for (const QString& key : {name, name.left(name.lastIndexOf('_')), QString("*")})
        if (const auto found = texts.constFind(before + key); found != texts.constEnd()) return *found;
    return {};
}

} // namespace metrisk
