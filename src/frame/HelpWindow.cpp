#include "frame/HelpWindow.h"

#include "frame/EventGuard.h"
#include "frame/Icons.h"
#include "frame/MsgBox.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QListWidget>
#include <QPointer>
#include <QRegularExpression>
#include <QSplitter>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextTable>
#include <QToolBar>
#include <QUrl>

#include <utility>

namespace tarnwell {

namespace {

constexpr QSize openingSize(860, 620);
constexpr int contentsWidth = 220;
constexpr int listSpacing = 3;
constexpr double pageMargin = 20;
constexpr double cellPadding = 4;
constexpr double tableMargin = 8;
constexpr double readingScale = 1.1;
const QString contentsPage = QStringLiteral("contents");

QString& helpFolder() {
    static QString folder;
    return folder;
}

QPointer<HelpWindow>& openWindow() {
    static QPointer<HelpWindow> window;
    return window;
}

QString pageFile(const QString& page) {
    return QStringLiteral("%1/%2.md").arg(helpFolder(), page);
}

} // namespace

HelpWindow::HelpWindow(QWidget* owner)
    : QMainWindow(owner), m_contents(new QListWidget), m_page(new QTextBrowser) {
    setObjectName(QStringLiteral("helpWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Tarnwell Help"));
    m_contents->setObjectName(QStringLiteral("lstContents"));
    m_contents->setAccessibleName(QStringLiteral("Contents"));
    m_page->setObjectName(QStringLiteral("txtPage"));
    m_page->document()->setDocumentMargin(pageMargin);
    QFont reading = m_page->font();
    reading.setPointSizeF(reading.pointSizeF() * readingScale);
    m_page->setFont(reading);
    m_contents->setSpacing(listSpacing);
    auto* splitter = new QSplitter;
    splitter->addWidget(m_contents);
    splitter->addWidget(m_page);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({contentsWidth, openingSize.width() - contentsWidth});
    setCentralWidget(splitter);
    resize(openingSize);
    buildActions();
    fillContents();
    connect(m_contents, &QListWidget::currentItemChanged, this,
            guarded([this](QListWidgetItem* item, QListWidgetItem* /*before*/) {
                if (item != nullptr)
                    turnTo(item->data(Qt::UserRole).toString());
            }));
    connect(m_page, &QTextBrowser::sourceChanged, this,
            guarded([this](const QUrl& source) { followPage(source); }));
}

void HelpWindow::buildActions() {
    QToolBar* bar = addToolBar(QStringLiteral("Pages"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [this, bar](const QString& image, const QString& caption, const QKeySequence& keys) {
        QAction* action = bar->addAction(toolbarIcon(image), caption);
        action->setShortcut(keys);
        action->setToolTip(QStringLiteral("%1 (%2)").arg(caption, keys.toString(QKeySequence::NativeText)));
        return action;
    };
    QAction* back =
        add(QStringLiteral("PRecord"), QStringLiteral("Back"), QKeySequence(QStringLiteral("Alt+Left")));
    QAction* forward =
        add(QStringLiteral("NRecord"), QStringLiteral("Forward"), QKeySequence(QStringLiteral("Alt+Right")));
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, m_page, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, m_page, &QTextBrowser::forward);
    connect(m_page, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_page, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpWindow::fillContents() {
    static const QRegularExpression link(QStringLiteral(R"(\[([^\]]+)\]\(([^)]+)\.md\))"));
    const auto add = [this](const QString& title, const QString& page) {
        auto* item = new QListWidgetItem(title, m_contents);
        item->setData(Qt::UserRole, page);
    };
    add(QStringLiteral("Contents"), contentsPage);
    QFile file(pageFile(contentsPage));
    if (!file.open(QIODevice::ReadOnly))
        return;
    for (auto links = link.globalMatch(QString::fromUtf8(file.readAll())); links.hasNext();) {
        const QRegularExpressionMatch match = links.next();
        add(match.captured(1), match.captured(2));
    }
}

void HelpWindow::turnTo(const QString& page) {
    const QUrl source = QUrl::fromLocalFile(pageFile(page));
    if (m_page->source() != source)
        m_page->setSource(source);
}

/// The list stands on the page shown, also when a link led there.
void HelpWindow::followPage(const QUrl& source) {
    const QString page = QFileInfo(source.path()).completeBaseName();
    for (int row = 0; row < m_contents->count(); ++row)
        if (m_contents->item(row)->data(Qt::UserRole).toString() == page)
            m_contents->setCurrentRow(row);
    spaceTables();
}

/// Markdown knows no table style, and the toolkit's own draws every line twice.
void HelpWindow::spaceTables() {
    for (QTextFrame* frame : m_page->document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr)
            continue;
        QTextTableFormat format = table->format();
        format.setBorder(0);
        format.setCellPadding(cellPadding);
        format.setTopMargin(tableMargin);
        format.setBottomMargin(tableMargin);
        table->setFormat(format);
    }
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QMainWindow::keyPressEvent(event);
}

void HelpWindow::setFolder(const QString& folder) {
    helpFolder() = folder;
}

void HelpWindow::open(const QString& page) {
    const QString known = QFile::exists(pageFile(page)) ? page : contentsPage;
    if (!QFile::exists(pageFile(known))) {
        MsgBox({.text = QStringLiteral("The help pages were not found in:\n\n") + helpFolder(),
                .title = QStringLiteral("Help"),
                .icon = MessageIcon::Exclamation});
        return;
    }
    // A modal window blocks all others but those that it owns. The window that goes may be handling the key.
    QWidget* modal = QApplication::activeModalWidget();
    if (!openWindow().isNull() && openWindow()->parentWidget() != modal)
        closeOpen();
    if (openWindow().isNull())
        openWindow() = new HelpWindow(modal);
    openWindow()->turnTo(known);
    openWindow()->show();
    openWindow()->raise();
    openWindow()->activateWindow();
}

void HelpWindow::closeOpen() {
    if (const QPointer<HelpWindow> window = std::exchange(openWindow(), nullptr); !window.isNull())
        window->close();
}

} // namespace tarnwell
