#include "frame/main/HomePage.h"

#include "frame/main/ElidedLine.h"
#include "frame/main/HomeLink.h"
#include "look/Icons.h"
#include "runtime/EventGuard.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarnwell {

namespace {

constexpr int pageMargin = 32, betweenParts = 26, betweenLines = 2, besideFigures = 44,
              programIconExtent = 56;

/// Texts begin where those of the links do, which have space around them for the frame.
constexpr QMargins textMargins(4, 0, 4, 0);

/// A text in `scale` times the desktop's size.
QLabel* text(double scale, QFont::Weight weight = QFont::Normal, QLabel* made = new QLabel) {
    QFont font = made->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setWeight(weight);
    made->setFont(font);
    made->setTextFormat(Qt::PlainText);
    made->setContentsMargins(textMargins);
    return made;
}

QLabel* heading(const char* caption) {
    QLabel* made = text(1, QFont::DemiBold);
    made->setText(QLatin1String(caption));
    return made;
}

/// Says what the line beside it is about.
QLabel* faint(double scale = 1, QLabel* line = new QLabel) {
    QLabel* made = text(scale, QFont::Normal, line);
    made->setForegroundRole(QPalette::PlaceholderText);
    return made;
}

/// A part of the page whose lines stand close together.
std::pair<QWidget*, QVBoxLayout*> part(const char* name) {
    auto* made = new QWidget;
    made->setObjectName(QLatin1String(name));
    auto* lines = new QVBoxLayout(made);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(betweenLines);
    return {made, lines};
}

HomeLink* link(const QString& name) {
    auto* made = new HomeLink;
    made->setObjectName(name);
    return made;
}

QString counted(qint64 number, const char* one, const char* many) {
    return QLatin1String(number == 1 ? one : many);
}

} // namespace

HomePage::HomePage(QWidget* parent) : QScrollArea(parent) {
    setObjectName(QStringLiteral("home"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    column->setSpacing(betweenParts);
    addTitle(*column);
    m_failure = faint();
    m_failure->setObjectName(QStringLiteral("lblFailure"));
    m_failure->setWordWrap(true);
    m_failure->hide();
    column->addWidget(m_failure);
    for (QWidget* each :
         {m_figuresPart = makeFigures(), m_jobsPart = makeJobs(), m_stepsPart = makeSteps()}) {
        each->hide(); // Until it is known what there is to show.
        column->addWidget(each);
    }
    column->addWidget(makeDatabase());
    column->addStretch(1);
    QLabel* keys = faint();
    keys->setText(QStringLiteral("Press Alt and an underlined letter to open an item, F1 for help."));
    keys->setWordWrap(true);
    column->addWidget(keys);
    setWidget(page);
    page->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

void HomePage::addTitle(QVBoxLayout& column) {
    auto* icon = new QLabel;
    icon->setPixmap(programIcon().pixmap(QSize(programIconExtent, programIconExtent), devicePixelRatioF()));
    QLabel* program = text(2, QFont::DemiBold);
    program->setText(QStringLiteral("Tarnwell"));
    m_today = faint(1.15);
    m_today->setObjectName(QStringLiteral("lblToday"));
    auto* lines = new QVBoxLayout;
    lines->setSpacing(betweenLines);
    lines->addWidget(program);
    lines->addWidget(m_today);
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(icon, 0, Qt::AlignVCenter);
    row->addLayout(lines, 1);
    column.addLayout(row);
}

QWidget* HomePage::makeFigures() {
    auto* made = new QWidget;
    made->setObjectName(QStringLiteral("homeFigures"));
    auto* grid = new QGridLayout(made);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(besideFigures);
    grid->setVerticalSpacing(0);
    constexpr std::array names{"lblOpenJobs", "lblPayments", "lblPaid"};
    for (std::size_t i = 0; i < figureCount; ++i) {
        m_figures.at(i) = text(1.9);
        m_figures.at(i)->setObjectName(QLatin1String(names.at(i)));
        m_figureNames.at(i) = faint();
        grid->addWidget(m_figures.at(i), 0, static_cast<int>(i));
        grid->addWidget(m_figureNames.at(i), 1, static_cast<int>(i));
    }
    grid->setColumnStretch(static_cast<int>(figureCount), 1);
    return made;
}

QWidget* HomePage::makeJobs() {
    const auto [made, lines] = part("homeJobs");
    lines->addWidget(heading("Last jobs"));
    for (std::size_t i = 0; i < jobCount; ++i) {
        HomeLink* job = m_jobs.at(i) = link(QStringLiteral("lnkJob(%1)").arg(i));
        job->setToolTip(QStringLiteral("Open this job"));
        connect(job, &HomeLink::clicked, this,
                guarded([this, i] { Q_EMIT jobChosen(m_listed.at(i).jobKey); }));
        lines->addWidget(job);
    }
    return made;
}

QWidget* HomePage::makeSteps() {
    const auto [made, lines] = part("homeSteps");
    lines->addWidget(heading("Five steps to the first payment"));
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(betweenLines);
    for (std::size_t i = 0; i < stepCount; ++i) {
        StepLine& step = m_steps.at(i);
        step = {.mark = text(1, QFont::DemiBold),
                .link = link(QStringLiteral("lnkStep(%1)").arg(i)),
                .hint = faint(1, new ElidedLine(Qt::ElideRight)),
                .screen = {}};
        step.link->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        step.mark->setAlignment(Qt::AlignCenter);
        step.mark->setMinimumWidth(step.mark->fontMetrics().height());
        connect(step.link, &HomeLink::clicked, this,
                guarded([this, i] { Q_EMIT screenChosen(m_steps.at(i).screen); }));
        const int row = static_cast<int>(i);
        grid->addWidget(step.mark, row, 0);
        grid->addWidget(step.link, row, 1);
        grid->addWidget(step.hint, row, 2);
    }
    grid->setColumnStretch(2, 1);
    lines->addLayout(grid);
    return made;
}

QWidget* HomePage::makeDatabase() {
    const auto [made, lines] = part("homeDatabase");
    lines->addWidget(heading("Database"));
    m_database = text(1, QFont::Normal, new ElidedLine(Qt::ElideMiddle));
    m_database->setObjectName(QStringLiteral("lblDatabase"));
    m_workstations = faint();
    m_workstations->setObjectName(QStringLiteral("lblWorkstations"));
    m_backup = faint();
    m_backup->setObjectName(QStringLiteral("lblBackup"));
    m_backups = link(QStringLiteral("lnkBackups"));
    m_backups->setText(QStringLiteral("Backups…"));
    m_backups->setToolTip(QStringLiteral("Back up now, look at the backups, restore one"));
    connect(m_backups, &HomeLink::clicked, this,
            guarded([this] { Q_EMIT screenChosen(QStringLiteral("frmBackups")); }));
    for (QWidget* line : std::initializer_list<QWidget*>{m_database, m_workstations, m_backup})
        lines->addWidget(line);
    lines->addWidget(m_backups);
    m_workstations->hide();
    m_backup->hide();
    m_backups->hide();
    return made;
}

std::vector<HomeLink*> HomePage::links() const {
    std::vector<HomeLink*> all(m_jobs.begin(), m_jobs.end());
    std::ranges::transform(m_steps, std::back_inserter(all), &StepLine::link);
    all.push_back(m_backups);
    return all;
}

void HomePage::showDay(const QString& day) {
    m_today->setText(day);
}

void HomePage::offerBackups(bool isOffered) {
    m_backups->setVisible(isOffered);
}

void HomePage::showState(const HomeState& state) {
    const bool isBegun = state.steps.empty();
    if (isBegun)
        showFigures(state.figures);
    else
        showSteps(state.steps);
    m_figuresPart->setVisible(isBegun);
    m_jobsPart->setVisible(isBegun && !m_listed.empty());
    m_stepsPart->setVisible(!isBegun);
    m_failure->hide();
    const std::array<std::pair<QLabel*, const QString&>, 2> lines{
        {{m_workstations, state.workstations}, {m_backup, state.backup}}};
    for (const auto& [line, said] : lines) {
        line->setText(said);
        line->setVisible(!said.isEmpty());
    }
}

void HomePage::showFailure(const QString& reason) {
    for (QWidget* each : {m_figuresPart, m_jobsPart, m_stepsPart})
        each->hide();
    m_failure->setText(QStringLiteral("The figures can't be read at the moment: %1").arg(reason));
    m_failure->show();
}

void HomePage::showFigures(const HomeFigures& figures) {
    const QLocale english(QLocale::English);
    const struct {
        QString figure;
        QString name;
    } shown[] = {
        {english.toString(figures.openJobs), counted(figures.openJobs, "open job", "open jobs")},
        {english.toString(figures.payments), counted(figures.payments, "payment today", "payments today")},
        {english.toString(figures.paid, 'f', 2), QStringLiteral("paid today")},
    };
    for (std::size_t i = 0; i < figureCount; ++i) {
        m_figures.at(i)->setText(shown[i].figure);
        m_figureNames.at(i)->setText(shown[i].name);
    }
    m_listed = figures.lastJobs;
    for (std::size_t i = 0; i < jobCount; ++i) {
        const bool isThere = i < m_listed.size();
        m_jobs.at(i)->setVisible(isThere);
        if (isThere)
            m_jobs.at(i)->setText(m_listed[i].number + QStringLiteral("  ") + m_listed[i].name);
    }
}

void HomePage::showSteps(const std::vector<FirstStep>& steps) {
    for (std::size_t i = 0; i < std::min(steps.size(), stepCount); ++i) {
        StepLine& line = m_steps.at(i);
        const FirstStep& step = steps[i];
        line.screen = step.screen;
        line.mark->setText(step.isDone ? QStringLiteral("✓") : QString::number(i + 1));
        line.mark->setForegroundRole(step.isDone ? QPalette::Link : QPalette::PlaceholderText);
        line.link->setText(step.caption);
        line.link->setAccessibleName(step.isDone ? step.caption + QStringLiteral(", done") : step.caption);
        line.link->setAccessibleDescription(step.hint);
        line.link->setToolTip(step.hint);
        line.hint->setText(step.hint);
    }
}

void HomePage::askAfterPaint() {
    m_isDue = true;
    viewport()->update();
}

void HomePage::paintEvent(QPaintEvent* event) {
    QScrollArea::paintEvent(event);
    if (std::exchange(m_isDue, false))
        QTimer::singleShot(0, this, guarded([this] { Q_EMIT due(); }));
}

} // namespace tarnwell
