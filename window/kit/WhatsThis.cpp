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

class EntryFinder final : public ControlVisitor {
  public:
    bool found = false;

    void visit(TextBox& box) override { found = !box.isResult(); }
    void visit(Choice& choice) override { found = bool(choice.chosen); }
    void visit(ListBox& list) override { found = bool(list.chosen); }
    void visit(Memo&) override { found = true; }
    void visit(Panel&) override {}
    void visit(Label&) override {}
    void visit(Button&) override {}
    void visit(Meter&) override {}
    void visit(Swatch&) override {}
    void visit(Slider&) override {}
    void visit(PictureArea&) override {}
    void visit(Table&) override {}
    void visit(Sheet&) override {}
    void visit(Hypertext&) override {}
};

} // namespace

bool takesEntry(Control& control) {
    EntryFinder finder;
    control.accept(finder);
    return finder.found;
}

QString whatsThis(const Worksheet& screen, Control& control) {
    static const QHash<QString, QString> texts = readTexts();
    if (!takesEntry(control)) return {};
    const QString before = QString(screen.name) + '.';
    const QString name = control.name;
    for (const QString& key : {name, name.left(name.lastIndexOf('_')), QString("*")})
        if (const auto found = texts.constFind(before + key); found != texts.constEnd()) return *found;
    return {};
}

} // namespace metrisk
