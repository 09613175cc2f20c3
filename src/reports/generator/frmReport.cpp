#include "reports/generator/frmReport.h"

#include "controls/Label.h"
#include "look/Icons.h"
#include "reports/drawing/RunReport.h"
#include "reports/generator/ReportGenerator.h"
#include "reports/preview/ctlAHPrintPreview.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"
#include "runtime/modErrorRoutines.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QScopedValueRollback>

#include <utility>

namespace tarnwell {

namespace {

constexpr QSize designSize(440, 132);
constexpr int margin = 16, spacing = 10, logoExtent = 64;
/// Often enough that the bar moves evenly and a click is answered at once.
constexpr qint64 millisecondsBetweenEvents = 25;

} // namespace

frmReport::frmReport(const Report& report, ReportParameters parameters)
    : Screen(report.objectName, report.caption, {}), m_report(report), m_parameters(std::move(parameters)) {}

void frmReport::Form_Load() {
    makeControls();
    layOut();
    ctlAHPrintPreview1 = new ctlAHPrintPreview(this);
    ctlAHPrintPreview1->setObjectName("ctlAHPrintPreview1");
    ctlAHPrintPreview1->setConnectionString(reportConnectionString());
    ctlAHPrintPreview1->setFollowStoring(
        [this](qint64 done, qint64 pages) {
            return follow("Storing the pages...", done, pages) && !m_cancelClicked;
        },
        [this] { return goesOn(); });
    ctlAHPrintPreview1->setFollowPrint(
        [this](qint64 done, qint64 pages) { return follow("Printing the pages...", done, pages); });
}

void frmReport::makeControls() {
    setDesignSize(designSize);
    proBarStatus = new QProgressBar(canvas());
    proBarStatus->setRange(0, 1);
    proBarStatus->setValue(0);
    cmdCancel = new QPushButton("&Cancel", canvas());
    picObject = new QWidget(canvas());
    imgLogo = new QLabel(picObject);
    imgLogo->setPixmap(barIcon("icoReport").pixmap(QSize(logoExtent, logoExtent), devicePixelRatioF()));
    m_stage = label("Reading the data...", "lblStage", proBarStatus);
    nameControl(proBarStatus, "proBarStatus");
    nameControl(cmdCancel, "cmdCancel");
    nameControl(picObject, "picObject");
    nameControl(imgLogo, "imgLogo");
    setCancelButton(cmdCancel);
    connect(cmdCancel, &QPushButton::clicked, this, guarded([this] { cmdCancel_Click(); }));
    connect(this, &frmReport::activated, this, guarded([this] { RunReport(); }), Qt::QueuedConnection);
}

void frmReport::layOut() {
    auto* picture = new QVBoxLayout(picObject);
    picture->setContentsMargins(0, 0, 0, 0);
    picture->addWidget(imgLogo);
    auto* progress = new QVBoxLayout;
    progress->setSpacing(spacing);
    progress->addStretch(1);
    progress->addWidget(m_stage);
    progress->addWidget(proBarStatus);
    progress->addStretch(1);
    progress->addWidget(cmdCancel, 0, Qt::AlignRight);
    auto* form = new QHBoxLayout(canvas());
    form->setContentsMargins(margin, margin, margin, margin);
    form->setSpacing(margin);
    form->addWidget(picObject, 0, Qt::AlignTop);
    form->addLayout(progress, 1);
}

/// Once only: the form is activated again behind each message and the preview. The report begins after the
/// event that showed the form, so that the window is visible first.
void frmReport::Form_Activate() {
    if (std::exchange(m_started, true))
        return;
    m_cancelRequested = false;
    Q_EMIT activated();
}

void frmReport::RunReport() {
    if (!isLoaded())
        return;
    repaint();
    m_sinceEvents.start();
    m_parameters.calendarMode = CalendarMode;
    if (const auto reportKey = tarnwell::RunReport(m_report, DataEnvironment::cnnConnection(), m_parameters,
                                                   *ctlAHPrintPreview1, *this))
        ShowPages(*reportKey);
    Unload();
}

void frmReport::ShowPages(qint64 reportKey) {
    try {
        ctlAHPrintPreview1->ShowReport(reportKey, Preview);
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

void frmReport::Form_Unload() {
    m_cancelRequested = true; // The program may end in the middle of a report.
}

void frmReport::closeRequested() {
    if (m_started)
        cmdCancel_Click();
    else
        Unload();
}

/// While pages are stored others wait for the report database, and while a statement works the connection is
/// not to be used: each is released before the question.
void frmReport::cmdCancel_Click() {
    if (m_statementWorks || ctlAHPrintPreview1->isStoring())
        m_cancelClicked = true;
    else
        askToStop();
}

bool frmReport::letsStatementWork() {
    const QScopedValueRollback works(m_statementWorks, true);
    DoEvents();
    return !m_cancelClicked && !m_cancelRequested;
}

bool frmReport::goesOn() {
    if (std::exchange(m_cancelClicked, false))
        askToStop();
    return !m_cancelRequested;
}

void frmReport::askToStop() {
    const Answer answer =
        MsgBox({.text = "Stop printing report?", .title = "Stop Report", .buttons = MessageButtons::YesNo});
    if (answer == Answer::Yes)
        m_cancelRequested = true;
    repaint();
}

void frmReport::setMax(int units) {
    m_unitsDone = 0;
    proBarStatus->setRange(0, units);
    m_stage->setText("Drawing the pages...");
    showProgress();
}

bool frmReport::follow(const char* stage, qint64 done, qint64 pages) {
    m_stage->setText(stage);
    proBarStatus->setMaximum(static_cast<int>(pages));
    m_unitsDone = static_cast<int>(done);
    DoEvents();
    return !m_cancelRequested;
}

void frmReport::DoEvents() {
    if (m_sinceEvents.elapsed() >= millisecondsBetweenEvents)
        showProgress();
}

void frmReport::showProgress() {
    proBarStatus->setValue(m_unitsDone);
    QCoreApplication::processEvents();
    m_sinceEvents.start();
}

} // namespace tarnwell
