#include "reports/preview/PreviewWindow.h"

#include "controls/AccessibleName.h"
#include "controls/Label.h"
#include "controls/WindowPlace.h"
#include "look/WindowOwner.h"
#include "reports/drawing/PageSurface.h"
#include "reports/preview/PreviewFindBar.h"
#include "reports/preview/PreviewToolBar.h"
#include "reports/preview/PreviewTools.h"
#include "runtime/EventGuard.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QEventLoop>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace tarnwell {

namespace {

constexpr int boxGap = 4;
constexpr int statusMilliseconds = 15000;
/// What the preview takes of the screen at first, besides the width that the pages want.
constexpr double shareOfHeight = 0.92;
constexpr int leastOpeningWidth = 1120;
constexpr std::array zoomsOffered = {25, 50, 75, 100, 125, 150, 200, 400};
const QString fitWidthText = QStringLiteral("Fit width");
const QString fitPageText = QStringLiteral("Fit page");

QString percentText(double zoom) {
    return QStringLiteral("%1 %").arg(qRound(zoom * 100));
}

} // namespace

PreviewWindow::PreviewWindow(const PreviewDocument& pages, const QString& title, PreviewCommands commands,
                             PreviewLook& look)
    : m_pages(pages), m_commands(std::move(commands)), m_look(look), m_view(new PreviewView(pages, this)),
      m_findBar(new PreviewFindBar(this)), m_page(new QLineEdit(this)), m_zoom(new QComboBox(this)),
      m_paper(new QLabel(this)) {
    setObjectName(QStringLiteral("preview"));
    setWindowTitle(QStringLiteral("%1 - Preview").arg(title));
    setContextMenuPolicy(Qt::NoContextMenu);
    auto* middle = new QWidget(this);
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_view, 1);
    column->addWidget(m_findBar);
    m_findBar->hide();
    setCentralWidget(middle);
    m_paper->setObjectName(QStringLiteral("lblPaper"));
    statusBar()->setAccessibleName(QStringLiteral("Status"));
    statusBar()->addPermanentWidget(m_paper);
    buildTools();
    connectView();
    m_view->setFit(m_look.fit);
    if (m_look.fit == ZoomFit::None)
        m_view->setZoom(m_look.zoom);
    m_view->setArrangement(m_look.arrangement);
    showPage();
    showLook();
    enable({"Print", "SavePdf", "PageSetup", "ZoomOut", "ZoomIn", "Single", "Facing", "Overview", "Find",
            "FindNextKey", "FindPreviousKey", "GoToPage"},
           true);
    m_view->setFocus();
}

/// A box may lose the focus while the window is destroyed: there is nothing left to show then.
PreviewWindow::~PreviewWindow() {
    m_page->disconnect(this);
    m_zoom->lineEdit()->disconnect(this);
}

QAction* PreviewWindow::addTool(const QString& name, std::function<void()> routine) {
    QAction* action = makePreviewTool(name, this);
    connect(action, &QAction::triggered, this, guarded(std::move(routine)));
    return action;
}

void PreviewWindow::buildTools() {
    auto* const bar = new PreviewToolBar(this);
    addToolBar(bar);
    const auto add = [this, bar](const char* name, ToolWidth kind, std::function<void()> routine) {
        bar->addTool(addTool(QLatin1String(name), std::move(routine)), kind);
    };
    using enum ToolWidth;
    add("Print", Caption, [this] { print(); });
    add("SavePdf", Caption, [this] { say(m_commands.savePdf(this)); });
    add("PageSetup", Icon, [this] {
        if (m_commands.setUpPage(this))
            m_view->refresh();
    });
    bar->addSeparator();
    add("FirstPage", Spare, [this] { m_view->goToPage(1); });
    add("PreviousPage", Icon, [this] { m_view->turn(-1); });
    addPageBox(bar);
    add("NextPage", Icon, [this] { m_view->turn(1); });
    add("LastPage", Spare, [this] { m_view->goToPage(m_view->pageCount()); });
    bar->addSeparator();
    add("ZoomOut", Spare, [this] { m_view->stepZoom(-1); });
    addZoomBox(bar);
    add("ZoomIn", Spare, [this] { m_view->stepZoom(1); });
    add("FitWidth", Icon, [this] { m_view->setFit(ZoomFit::Width); });
    add("FitPage", Icon, [this] { m_view->setFit(ZoomFit::Page); });
    bar->addSeparator();
    add("Single", Icon, [this] { arrange(Arrangement::Single); });
    add("Facing", Icon, [this] { arrange(Arrangement::Facing); });
    add("Overview", Icon, [this] { arrange(Arrangement::Overview); });
    bar->addSeparator();
    add("Find", Caption, [this] { openFind(); });
    auto* space = new QWidget(bar);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);
    add("Close", Caption, [this] { close(); });
    bar->keepInSight();
    addTool(QStringLiteral("TrueSize"), [this] { m_view->setZoom(1); });
    addTool(QStringLiteral("FindNextKey"), [this] { stepHit(1); });
    addTool(QStringLiteral("FindPreviousKey"), [this] { stepHit(-1); });
    addTool(QStringLiteral("GoToPage"), [this] {
        m_page->setFocus(Qt::ShortcutFocusReason);
        m_page->selectAll();
    });
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this,
            guarded([this] { escape(); }));
}

void PreviewWindow::addPageBox(QToolBar* bar) {
    static const QRegularExpression digits(QStringLiteral("[0-9]{0,7}"));
    m_page->setObjectName(QStringLiteral("txtPage"));
    m_page->setToolTip(QStringLiteral("Page to go to (Ctrl+G)"));
    m_page->setAccessibleName(QStringLiteral("Page"));
    m_page->setAlignment(Qt::AlignRight);
    m_page->setValidator(new QRegularExpressionValidator(digits, m_page));
    const QString widest(std::max(3, int(QString::number(m_pages.count()).size())) + 2, u'0');
    m_page->setFixedWidth(m_page->fontMetrics().horizontalAdvance(widest) + 2 * boxGap);
    auto* count = label(QStringLiteral("of %1").arg(m_pages.count()), QStringLiteral("lblPageCount"));
    count->setContentsMargins(boxGap, 0, boxGap, 0);
    bar->addWidget(m_page);
    bar->addWidget(count);
    connect(m_page, &QLineEdit::returnPressed, this, guarded([this] {
                goToTypedPage();
                m_view->setFocus();
            }));
    connect(m_page, &QLineEdit::editingFinished, this, guarded([this] { showPage(); }));
}

void PreviewWindow::addZoomBox(QToolBar* bar) {
    m_zoom->setObjectName(QStringLiteral("cmbZoom"));
    m_zoom->setEditable(true);
    m_zoom->setCompleter(nullptr);
    m_zoom->setInsertPolicy(QComboBox::NoInsert);
    m_zoom->setToolTip(QStringLiteral("Zoom in percent; 100 % is the size on paper (Ctrl+0)"));
    setSpokenName(*m_zoom, QStringLiteral("Zoom"));
    m_zoom->addItems({fitWidthText, fitPageText});
    for (const int percent : zoomsOffered)
        m_zoom->addItem(percentText(percent / 100.0));
    bar->addWidget(m_zoom);
    connect(m_zoom, &QComboBox::activated, this, guarded([this] { takeTypedZoom(); }));
    connect(m_zoom->lineEdit(), &QLineEdit::returnPressed, this, guarded([this] { takeTypedZoom(); }));
    connect(m_zoom->lineEdit(), &QLineEdit::editingFinished, this, guarded([this] { showLook(); }));
}

void PreviewWindow::connectView() {
    connect(m_view, &PreviewView::pageChanged, this, guarded([this] { showPage(); }));
    connect(m_view, &PreviewView::lookChanged, this, guarded([this] { showLook(); }));
    connect(&m_view->finder(), &PageFinder::progressed, this, guarded([this] { showHits(); }));
    connect(m_findBar, &PreviewFindBar::searchChanged, this, guarded([this] { searchAgain(); }));
    connect(m_findBar, &PreviewFindBar::stepWanted, this,
            guarded([this](int direction) { stepHit(direction); }));
    connect(m_findBar, &PreviewFindBar::closeWanted, this, guarded([this] { closeFind(); }));
    for (const char* name : {"Find", "TrueSize", "FitWidth", "FitPage", "Single", "Facing", "Overview"})
        m_view->addAction(findChild<QAction*>(QLatin1String(name)));
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void PreviewWindow::print() {
    say(m_commands.print(m_view->currentPage(), this));
    m_view->refresh();
}

/// The keys walk through the pages in their new order at once.
void PreviewWindow::arrange(Arrangement arrangement) {
    m_view->setArrangement(arrangement);
    m_view->setFocus();
    showLook();
}

void PreviewWindow::showPage() {
    const int page = m_view->currentPage();
    const bool hasPages = m_view->pageCount() > 0;
    m_page->setText(hasPages ? QString::number(page) : QString());
    m_page->setEnabled(hasPages);
    m_view->setAccessibleName(hasPages ? QStringLiteral("Page %1 of %2").arg(page).arg(m_view->pageCount())
                                       : QStringLiteral("No pages"));
    enable({"FirstPage", "PreviousPage"}, page > 1);
    enable({"NextPage", "LastPage"}, page < m_view->pageCount());
}

/// Whatever else is asked for, a report without pages leaves nothing to do with one.
void PreviewWindow::enable(std::initializer_list<const char*> tools, bool on) {
    for (const char* name : tools)
        findChild<QAction*>(QLatin1String(name))->setEnabled(on && m_view->pageCount() > 0);
}

void PreviewWindow::showLook() {
    const bool overview = m_view->arrangement() == Arrangement::Overview;
    const auto mark = [this](const char* name, bool on) {
        findChild<QAction*>(QLatin1String(name))->setChecked(on);
    };
    mark("FitWidth", !overview && m_view->fit() == ZoomFit::Width);
    mark("FitPage", !overview && m_view->fit() == ZoomFit::Page);
    mark("Single", m_view->arrangement() == Arrangement::Single);
    mark("Facing", m_view->arrangement() == Arrangement::Facing);
    mark("Overview", overview);
    enable({"FitWidth", "FitPage", "TrueSize"}, !overview);
    m_zoom->setEnabled(!overview && m_view->isEnabled());
    m_zoom->setEditText(percentText(m_view->zoom()));
    m_paper->setText(m_pages.paperName());
}

void PreviewWindow::goToTypedPage() {
    bool number = false;
    const int page = m_page->text().toInt(&number);
    if (number)
        m_view->goToPage(page);
    showPage();
}

/// A text that is not a zoom changes nothing.
void PreviewWindow::takeTypedZoom() {
    const QString text = m_zoom->currentText().trimmed();
    bool number = false;
    const double percent = locale().toDouble(QString(text).remove(u'%').trimmed(), &number);
    if (text.compare(fitWidthText, Qt::CaseInsensitive) == 0)
        m_view->setFit(ZoomFit::Width);
    else if (text.compare(fitPageText, Qt::CaseInsensitive) == 0)
        m_view->setFit(ZoomFit::Page);
    else if (number && percent > 0)
        m_view->setZoom(percent / 100);
    showLook();
    m_view->setFocus();
}

void PreviewWindow::openFind() {
    m_findBar->open();
    if (m_view->finder().hitCount() == 0 && !m_view->finder().isSearching())
        searchAgain();
}

void PreviewWindow::searchAgain() {
    m_view->search(m_findBar->search());
    showHits();
}

/// The first hit is shown as soon as it is known, whatever is still to come.
void PreviewWindow::showHits(const QString& turned) {
    const PageFinder& finder = m_view->finder();
    const int count = finder.hitCount();
    if (count > 0 && m_view->currentHit() < 0)
        m_view->showHit(m_view->hitFromHere());
    const QString more = finder.isSearching() ? QStringLiteral("...") : turned;
    if (!finder.error().isEmpty())
        m_findBar->setResult(finder.error(), true);
    else if (m_findBar->search().text.isEmpty())
        m_findBar->setResult({}, false);
    else if (count > 0)
        m_findBar->setResult(QStringLiteral("%1 of %2%3").arg(m_view->currentHit() + 1).arg(count).arg(more),
                             false);
    else if (finder.isSearching())
        m_findBar->setResult(QStringLiteral("Searching..."), false);
    else
        m_findBar->setResult(QStringLiteral("Not found"), true);
}

/// Round the ends: behind the last hit comes the first, once it is known which these are.
void PreviewWindow::stepHit(int direction) {
    if (m_findBar->isHidden() || m_findBar->search().text.isEmpty()) {
        openFind();
        return;
    }
    const int count = m_view->finder().hitCount();
    const int hit = m_view->currentHit() + direction;
    const bool turns = hit < 0 || hit >= count;
    if (count == 0 || (turns && m_view->finder().isSearching()))
        return;
    m_view->showHit((hit + count) % count);
    showHits(hit < 0 ? QStringLiteral(" (from the end)")
             : turns ? QStringLiteral(" (from the beginning)")
                     : QString());
}

void PreviewWindow::closeFind() {
    m_findBar->hide();
    m_view->search({});
    m_view->setFocus();
}

/// Gives up what is being typed, else closes the find line, else the preview.
void PreviewWindow::escape() {
    if (m_page->hasFocus() || m_zoom->hasFocus()) {
        showPage();
        showLook();
        m_view->setFocus();
    } else if (m_findBar->isVisible())
        closeFind();
    else
        close();
}

void PreviewWindow::say(const QString& text) {
    if (!text.isEmpty())
        statusBar()->showMessage(text, statusMilliseconds);
}

/// As the user left the one before, else fitting the paper.
void PreviewWindow::placeOn(const QWidget* owner) {
    if (!restoreGeometry(m_look.geometry))
        fitToPaper((owner != nullptr ? owner->screen() : screen())->availableGeometry());
    new WindowPlace(*this, {});
}

/// In the middle of the screen, as wide as a page at its true size.
void PreviewWindow::fitToPaper(const QRect& screenArea) {
    const double trueWidth = m_pages.paperSize().width() / twipsPerInch * logicalDpiX();
    const int paper = qRound(trueWidth) + 4 * PreviewLayout::margin;
    const QSize wanted(std::max(leastOpeningWidth, paper), qRound(screenArea.height() * shareOfHeight));
    QRect place(QPoint(), wanted.boundedTo(screenArea.size()));
    place.moveCenter(screenArea.center());
    resize(place.size());
    move(place.topLeft());
}

void PreviewWindow::showModal(QWidget* owner) {
    setWindowModality(Qt::ApplicationModal);
    placeOn(owner);
    setWindowOwner(*this, owner);
    QEventLoop loop;
    connect(this, &PreviewWindow::closed, &loop, &QEventLoop::quit);
    show();
    raise();
    activateWindow();
    loop.exec(QEventLoop::DialogExec);
    if (owner != nullptr && owner->isVisible())
        owner->window()->activateWindow();
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
    m_look = {.geometry = saveGeometry(),
              .fit = m_view->fit(),
              .zoom = m_view->zoom(),
              .arrangement =
                  m_view->arrangement() == Arrangement::Facing ? Arrangement::Facing : Arrangement::Single};
    event->accept();
    Q_EMIT closed();
}

} // namespace tarnwell
