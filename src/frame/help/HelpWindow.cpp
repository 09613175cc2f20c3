#include "frame/help/HelpWindow.h"

#include "frame/help/HelpBrowser.h"
#include "look/Icons.h"
#include "look/PlaceBeside.h"
#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tarnwell {

namespace {

constexpr QSize openingSize(980, 720);
constexpr int leastWidth = 620, widthStep = 60; ///< Beside another window.
constexpr int contentsWidth = 250;
constexpr int listSpacing = 2, margin = 8;
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
    return helpPageFile(helpFolder(), page);
}

} // namespace

HelpWindow::HelpWindow(QWidget* owner)
    : QMainWindow(owner), m_pages(readHelpPages(helpFolder())), m_search(new QLineEdit),
      m_contents(new QListWidget), m_nothing(new QLabel(QStringLiteral("No page holds these words."))),
      m_page(new HelpBrowser(helpFolder())) {
    setObjectName(QStringLiteral("helpWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Tarnwell Help"));
    setContextMenuPolicy(Qt::NoContextMenu); // It would offer to hide the buttons.
    m_search->setObjectName(QStringLiteral("txtSearch"));
    m_search->setPlaceholderText(QStringLiteral("Search (Ctrl+F)"));
    m_search->setAccessibleName(QStringLiteral("Search"));
    m_search->setClearButtonEnabled(true);
    m_contents->setObjectName(QStringLiteral("lstContents"));
    m_contents->setAccessibleName(QStringLiteral("Contents"));
    m_contents->setSpacing(listSpacing);
    m_nothing->setObjectName(QStringLiteral("lblNothing"));
    m_nothing->setWordWrap(true);
    m_nothing->hide();
    m_page->setObjectName(QStringLiteral("txtPage"));

    auto* left = new QWidget;
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins(margin, margin, margin, margin);
    for (QWidget* widget : std::initializer_list<QWidget*>{m_search, m_nothing, m_contents})
        column->addWidget(widget);
    auto* splitter = new QSplitter;
    splitter->addWidget(left);
    m_page->setFrameShape(QFrame::NoFrame);
    splitter->addWidget(m_page);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({contentsWidth, openingSize.width() - contentsWidth});
    setCentralWidget(splitter);
    resize(openingSize.boundedTo(screen()->availableSize()));
    buildActions();
    fillContents();
    connect(m_contents, &QListWidget::currentRowChanged, this, guarded([this](int row) {
                if (const HelpPage* page = pageOf(m_contents->item(row)))
                    turnTo(page->name);
            }));
    connect(m_page, &QTextBrowser::sourceChanged, this,
            guarded([this](const QUrl& source) { followPage(source); }));
    connect(m_search, &QLineEdit::textChanged, this, guarded([this] { search(); }));
    connect(m_search, &QLineEdit::returnPressed, this, guarded([this] { m_page->setFocus(); }));
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
    auto* find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    addAction(find);
    connect(find, &QAction::triggered, this, guarded([this] {
                m_search->setFocus(Qt::ShortcutFocusReason);
                m_search->selectAll();
            }));
}

/// The keys pass it over, since it can't be chosen.
void HelpWindow::addHeading(const QString& text) {
    auto* heading = new QListWidgetItem(text, m_contents);
    heading->setFlags(Qt::NoItemFlags);
    heading->setForeground(palette().color(QPalette::Active, QPalette::Text));
    QFont bold = m_contents->font();
    bold.setBold(true);
    heading->setFont(bold);
}

void HelpWindow::fillContents() {
    QString group;
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        const HelpPage& page = m_pages[i];
        if (page.group != group)
            addHeading(page.group);
        group = page.group;
        auto* line = new QListWidgetItem(page.title, m_contents);
        line->setData(Qt::UserRole, static_cast<qulonglong>(i));
    }
}

const HelpPage* HelpWindow::pageOf(const QListWidgetItem* line) const {
    const QVariant number = line != nullptr ? line->data(Qt::UserRole) : QVariant();
    return number.isValid() ? &m_pages.at(number.toULongLong()) : nullptr;
}

void HelpWindow::hideHeadingsWithoutPages() {
    bool isAnyShown = false;
    for (int row = m_contents->count() - 1; row >= 0; --row) {
        QListWidgetItem* line = m_contents->item(row);
        if (pageOf(line) != nullptr)
            isAnyShown = isAnyShown || !line->isHidden();
        else
            line->setHidden(!std::exchange(isAnyShown, false));
    }
}

void HelpWindow::search() {
    const QStringList words = searchWords(m_search->text());
    int first = -1;
    for (int row = m_contents->count() - 1; row >= 0; --row) {
        const HelpPage* page = pageOf(m_contents->item(row));
        if (page == nullptr)
            continue;
        // The contents only list what other pages explain.
        const bool found = isFound(*page, words) && (words.isEmpty() || page->name != contentsPage);
        m_contents->item(row)->setHidden(!found);
        if (found)
            first = row;
    }
    hideHeadingsWithoutPages();
    m_nothing->setVisible(first < 0);
    const QListWidgetItem* shown = m_contents->currentItem();
    if (first >= 0 && (shown == nullptr || shown->isHidden()))
        m_contents->setCurrentRow(first);
    m_page->markWords(words);
}

int HelpWindow::lineOf(const QString& page) const {
    for (int row = 0; row < m_contents->count(); ++row)
        if (const HelpPage* shown = pageOf(m_contents->item(row)); shown != nullptr && shown->name == page)
            return row;
    return -1;
}

void HelpWindow::turnTo(const QString& page) {
    const QUrl source = QUrl::fromLocalFile(pageFile(page));
    if (m_page->source() != source)
        m_page->setSource(source);
}

/// The list stands on the page shown, also when a link led there.
void HelpWindow::followPage(const QUrl& source) {
    if (const int line = lineOf(QFileInfo(source.path()).completeBaseName()); line >= 0)
        m_contents->setCurrentRow(line);
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !m_search->text().isEmpty())
        m_search->clear();
    else if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_PageDown) // From the search field, which has no pages of its own.
        m_page->verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
    else if (event->key() == Qt::Key_PageUp)
        m_page->verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepSub);
    else
        QMainWindow::keyPressEvent(event);
}

void HelpWindow::setFolder(const QString& folder) {
    helpFolder() = folder;
}

bool HelpWindow::hasPage(const QString& page) {
    return QFile::exists(pageFile(page));
}

/// Narrower than usual rather than over the window that asked.
bool HelpWindow::standBeside(const QWidget& asking) {
    const QWidget& window = *asking.window();
    const QRect available = window.screen()->availableGeometry();
    for (int width = this->width(); width >= leastWidth; width -= widthStep)
        if (const auto corner = placeBeside(window.frameGeometry(), QSize(width, height()), available)) {
            resize(width, height());
            move(*corner);
            return true;
        }
    return false;
}

void HelpWindow::showMessage(const QString& message) {
    const auto page =
        std::ranges::find(m_pages, QFileInfo(m_page->source().path()).completeBaseName(), &HelpPage::name);
    if (page != m_pages.end())
        m_page->showRow(listedMessage(page->text, message));
}

void HelpWindow::open(const QString& page, const QWidget* asking, const QString& message) {
    const QString known = hasPage(page) ? page : contentsPage;
    if (!hasPage(known)) {
        MsgBox({.text = QStringLiteral("The help pages were not found in:\n\n") + helpFolder(),
                .title = QStringLiteral("Help"),
                .icon = MessageIcon::Exclamation});
        return;
    }
    // A modal window blocks all windows but those that it owns. The old window may be handling this key.
    QWidget* modal = QApplication::activeModalWidget();
    if (!openWindow().isNull() && openWindow()->parentWidget() != modal)
        closeOpen();
    if (openWindow().isNull()) {
        openWindow() = new HelpWindow(modal);
        // At least the message must stay in sight.
        const bool isBeside = asking != nullptr && openWindow()->standBeside(*asking);
        if (!isBeside && modal != nullptr)
            openWindow()->standBeside(*modal);
    }
    openWindow()->turnTo(known);
    openWindow()->show();
    if (!message.isEmpty())
        openWindow()->showMessage(message);
    openWindow()->raise();
    openWindow()->activateWindow();
}

void HelpWindow::closeOpen() {
    if (const QPointer<HelpWindow> window = std::exchange(openWindow(), nullptr); !window.isNull())
        window->close();
}

} // namespace tarnwell
