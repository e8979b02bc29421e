#include "screens/HelpWindow.h"

#include <QAction>
#include <QTextBrowser>
#include <QToolBar>

namespace metrisk {

HelpWindow::HelpWindow(QWidget* parent) : QMainWindow(parent), browser_(new QTextBrowser) {
    setObjectName("HelpWindow");
    setWindowTitle("Metrisk Help");
    browser_->setObjectName("helpText");
    browser_->setSearchPaths({":/help"});
    browser_->setOpenExternalLinks(true);
    browser_->document()->setDocumentMargin(16);
    setCentralWidget(browser_);

    auto* bar = addToolBar("Help");
    bar->setMovable(false);
    QAction* back = bar->addAction("&Back", browser_, &QTextBrowser::backward);
    QAction* forward = bar->addAction("&Forward", browser_, &QTextBrowser::forward);
    bar->addAction("&Contents", this, [this] { open("contents"); });
    back->setShortcut(QKeySequence::Back);
    forward->setShortcut(QKeySequence::Forward);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    resize(fontMetrics().averageCharWidth() * 90, fontMetrics().lineSpacing() * 38);
}

void HelpWindow::open(const QString& page) {
    browser_->setSource(QUrl(page + ".html"));
    show();
    raise();
    activateWindow();
}

} // namespace metrisk
