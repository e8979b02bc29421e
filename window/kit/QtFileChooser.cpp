#include "window/kit/QtFileChooser.h"

#include "window/kit/DialogOver.h"
#include "window/kit/Widgets.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStandardPaths>

namespace metrisk {

namespace {

/// "*.mrk" as "*.mrk *.[mM][rR][kK]": the dialog takes the extension of a name from the first. No extension
/// tells a program here, nor does every file have one.
QString caseBlind(const QString& pattern) {
    if (pattern == "*.exe" || pattern == "*.*") return "*";
    QString blind;
    for (const QChar c : pattern)
        blind += c.isLetter() ? QString("[%1%2]").arg(c.toLower()).arg(c.toUpper()) : QString(c);
    return pattern + ' ' + blind;
}

/// "description|pattern" pairs as the filters of a dialog, whatever the case of a file's extension.
QStringList filtersOf(const std::string& told) {
    const QStringList parts = qt(told).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1].trimmed();
        QString description = parts[i].trimmed();
        description.truncate(description.contains(" (") ? description.indexOf(" (") : description.size());
        filters += QString("%1 (%2)").arg(description, caseBlind(pattern));
    }
    return filters;
}

/// Asks before a file is replaced, by a box that shows its name to the letter.
class SaveDialog final : public QFileDialog {
  public:
    SaveDialog(QWidget* parent, const QString& title) : QFileDialog(parent, title) {
        setAcceptMode(QFileDialog::AcceptSave);
        setOption(QFileDialog::DontConfirmOverwrite); // its own question would read a name as mark-up
    }

    void accept() override {
        const QFileInfo file(selectedFiles().value(0));
        if (!file.exists() || file.isDir() || mayReplace(file.fileName())) QFileDialog::accept();
    }

  private:
    bool mayReplace(const QString& name) {
        QMessageBox box(QMessageBox::Warning, windowTitle(),
                        name + " already exists.\nDo you want to replace it?",
                        QMessageBox::Yes | QMessageBox::No, this);
        box.setDefaultButton(QMessageBox::No);
        box.setTextFormat(Qt::PlainText);
        return runOver(box) == QMessageBox::Yes;
    }
};

std::optional<std::string> run(QFileDialog& dialog, const FileRequest& request) {
    const QStringList filters = filtersOf(request.filter);
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    dialog.setDirectory(request.initialFolder.empty() ? documents : qt(request.initialFolder));
    dialog.setObjectName("CommonDialogue");
    dialog.setNameFilters(filters);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (request.filterIndex >= 1 && request.filterIndex <= filters.size())
        dialog.selectNameFilter(filters[request.filterIndex - 1]);
    // After the filter, which gives a name that is there already its own extension. A pattern stands for "no
    // name yet"; the desktop's dialogs show that by an empty name.
    if (request.initialName.find('*') == std::string::npos) dialog.selectFile(qt(request.initialName));
    if (runOver(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().first().toStdString();
}

} // namespace

std::optional<std::string> QtFileChooser::chooseToOpen(const FileRequest& request) {
    QFileDialog dialog(screenInFront(mainWindow_), qt(request.title));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return run(dialog, request);
}

std::optional<std::string> QtFileChooser::chooseToSave(const FileRequest& request) {
    SaveDialog dialog(screenInFront(mainWindow_), qt(request.title));
    // Another kind of file gets another extension.
    QObject::connect(
        &dialog, &QFileDialog::filterSelected, &dialog, [&dialog, &request](const QString& filter) {
            const QStringList filters = filtersOf(request.filter);
            const QString pattern =
                qt(request.filter).split('|', Qt::SkipEmptyParts).value(2 * filters.indexOf(filter) + 1);
            const QStringList names = dialog.selectedFiles();
            if (filters.size() < 2 || !pattern.trimmed().startsWith("*.") || names.isEmpty()) return;
            const QFileInfo name(names.first());
            if (!name.suffix().isEmpty())
                dialog.selectFile(name.completeBaseName() + pattern.trimmed().mid(1));
        });
    return run(dialog, request);
}

} // namespace metrisk
