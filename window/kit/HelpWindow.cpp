#include "window/kit/HelpWindow.h"

#include "window/kit/Widgets.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QStatusBar>
#include <QTextBrowser>
#include <QToolBar>

namespace metrisk {

namespace {

/// The names of the pages, in their order.
QStringList pages() {
    QStringList names = QDir(":/help").entryList({"*.html"}, QDir::Files, QDir::Name);
    names.removeAll("contents.html");
    names.prepend("contents.html");
    return names;
}

bool holds(const QString& page, const QString& text) {
    QFile file(":/help/" + page);
    if (!file.open(QIODevice::ReadOnly)) return false;
    QTextDocument document;
    document.setHtml(QString::fromUtf8(file.readAll()));
    return document.toPlainText().contains(text, Qt::CaseInsensitive);
}

} // namespace

HelpWindow::HelpWindow() : browser_(new QTextBrowser), wanted_(new QLineEdit) {
    setObjectName("HelpWindow");
    setWindowTitle("Metrisk Help");
    setAttribute(Qt::WA_QuitOnClose, false); // it goes with the main screen
    browser_->setObjectName("helpText");
    browser_->setSearchPaths({":/help"});
    browser_->setOpenExternalLinks(true);
    setCentralWidget(browser_);
    showColours();

    auto* bar = addToolBar("Help");
    bar->setMovable(false);
    QAction* back = bar->addAction("&Back", browser_, &QTextBrowser::backward);
    QAction* forward = bar->addAction("&Forward", browser_, &QTextBrowser::forward);
    bar->addAction("&Contents", this, [this] { open("contents"); });
    wanted_->setObjectName("helpSearch");
    wanted_->setPlaceholderText("Search");
    wanted_->setAccessibleName("Search in all pages");
    wanted_->setClearButtonEnabled(true);
    wanted_->setMaximumWidth(fontMetrics().averageCharWidth() * 30);
    bar->addWidget(wanted_);
    connect(wanted_, &QLineEdit::returnPressed, this, &HelpWindow::search);
    back->setShortcut(QKeySequence::Back);
    forward->setShortcut(QKeySequence::Forward);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    auto* close = new QAction("Close", this);
    close->setShortcut(Qt::Key_Escape);
    addAction(close);
    connect(close, &QAction::triggered, this, &QWidget::close);
    auto* find = new QAction("Find", this);
    find->setShortcut(QKeySequence::Find);
    addAction(find);
    connect(find, &QAction::triggered, wanted_, [this] { wanted_->setFocus(); });
    resize(fontMetrics().averageCharWidth() * 90, fontMetrics().lineSpacing() * 38);
}

/// A link must be told from the text on a dark ground as well.
void HelpWindow::showColours() {
    browser_->document()->setDefaultStyleSheet(linkStyle(palette()));
    browser_->document()->setDocumentMargin(16);
}

void HelpWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || browser_->source().isEmpty()) return;
    showColours();
    browser_->reload();
}

/// The next place behind the one that is shown, on this page and then on the others in turn.
void HelpWindow::search() {
    const QString text = wanted_->text();
    statusBar()->clearMessage();
    if (text.isEmpty() || browser_->find(text)) return;
    const QStringList names = pages();
    const auto here = std::max<qsizetype>(names.indexOf(browser_->source().fileName()), 0);
    for (qsizetype i = 1; i <= names.size(); ++i) {
        const QString& page = names[(here + i) % names.size()];
        if (!holds(page, text)) continue;
        browser_->setSource(QUrl(page));
        browser_->moveCursor(QTextCursor::Start);
        browser_->find(text);
        return;
    }
    statusBar()->showMessage(QString("\"%1\" is on no page").arg(text));
}

void HelpWindow::open(const QString& page) {
    browser_->setSource(QUrl(page + ".html"));
    show();
    raise();
    activateWindow();
    browser_->setFocus();
}

} // namespace metrisk
