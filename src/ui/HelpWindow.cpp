#include "ui/HelpWindow.h"

#include "app/AppContext.h"
#include "app/HelpTopics.h"
#include "ui/BusyCursor.h"
#include "ui/WindowIcon.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QPointer>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

HelpWindow::HelpWindow(QWidget* parent)
    : QDialog(parent)
    , browser_(new QTextBrowser(this)) {
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(QStringLiteral("Vantrel Help"));
    SetIcon(this);
    browser_->setObjectName(QStringLiteral("txtHelp"));
    browser_->setOpenExternalLinks(true);
    browser_->setFrameShape(QFrame::NoFrame);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* back = buttons->addButton(QStringLiteral("Back"), QDialogButtonBox::ActionRole);
    QPushButton* close = buttons->addButton(QStringLiteral("Close"), QDialogButtonBox::RejectRole);
    back->setEnabled(false);
    connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(close, &QPushButton::clicked, this, &QDialog::close);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 12);
    layout->addWidget(browser_, 1);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->setContentsMargins(16, 0, 16, 0);
    buttonRow->addWidget(buttons);
    layout->addLayout(buttonRow);
    resize(720, 620);
}

void HelpWindow::showTopic(const cPathControl* paths, int topic) {
    topic_ = topic;
    const QString page = helpPagePath(paths, topic);
    found_ = !page.isEmpty();
    if (found_) {
        browser_->setSearchPaths({QFileInfo(page).absolutePath()});
        browser_->setSource(QUrl::fromLocalFile(page));
        return;
    }
    browser_->clearHistory();
    QString folders;
    for (const QString& folder : helpFolders(paths))
        folders += QStringLiteral("<li>%1</li>").arg(folder.toHtmlEscaped());
    browser_->setHtml(QStringLiteral("<h2>Help is not available</h2>"
                                     "<p>The help page for this screen (topic %1) could not be found. "
                                     "It was looked for in these folders:</p><ul>%2</ul>"
                                     "<p>Reinstalling Vantrel puts the help pages back.</p>")
                          .arg(topic)
                          .arg(folders));
}

HelpWindow* ShowHelp(const cPathControl* paths, int topic) {
    BusyCursor busy;
    static QPointer<HelpWindow> window;
    if (!window) {
        window = new HelpWindow;
        window->setAttribute(Qt::WA_DeleteOnClose);
    }
    window->showTopic(paths, topic);
    window->show();
    window->raise();
    window->activateWindow();
    return window;
}

HelpWindow* ShowHelp(const AppContext& ctx, int topic) {
    return ShowHelp(ctx.paths.get(), topic);
}
