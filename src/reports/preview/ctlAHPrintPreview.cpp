#include "reports/preview/ctlAHPrintPreview.h"

#include "data/RunTimeError.h"
#include "data/recordset/Connection.h"
#include "reports/pages/ReportFile.h"
#include "reports/preview/ReportPreview.h"
#include "runtime/MsgBox.h"

#include <QFileInfo>
#include <QScopedValueRollback>
#include <QWidget>

#include <utility>

namespace tarnwell {

namespace {

ctlAHPrintPreview::Preview& installedPreview() {
    static ctlAHPrintPreview::Preview preview =
        [shown = std::make_shared<ReportPreview>()](const ReportPages& report, const QString& title,
                                                    QWidget* owner) { shown->show(report, title, owner); };
    return preview;
}

/// Nothing is lost with the file, but it may be somebody's by mistake.
bool mayBeSetAside(const UnusableReportFile& file) {
    return MsgBox(
               {.text = QStringLiteral("The report database can't be used. %1\n\nIt only holds the pages of "
                                       "reports on show. Tarnwell keeps this file as %2 and makes a new "
                                       "one in its place.")
                            .arg(file.description(), QFileInfo(file.nameAside()).fileName()),
                .title = QStringLiteral("Report"),
                .buttons = MessageButtons::OkCancel,
                .icon = MessageIcon::Exclamation}) == Answer::Ok;
}

} // namespace

ctlAHPrintPreview::ctlAHPrintPreview(QWidget* form) : QObject(form) {}

ctlAHPrintPreview::Preview ctlAHPrintPreview::setPreview(Preview preview) {
    return std::exchange(installedPreview(), std::move(preview));
}

void ctlAHPrintPreview::setConnectionString(const QString& text) {
    m_connectionString = text;
    m_pages.reset();
}

PageStore& ctlAHPrintPreview::pages() const {
    if (m_pages == nullptr)
        raise(Failure::ObjectClosed);
    return *m_pages;
}

qint64 ctlAHPrintPreview::startReport() {
    if (m_pages == nullptr)
        m_pages =
            std::make_unique<PageStore>(connectionValue(m_connectionString, QLatin1String("Data Source")));
    return m_pages->newReport();
}

qint64 ctlAHPrintPreview::NewReport() {
    try {
        return startReport();
    } catch (const UnusableReportFile& file) {
        if (!mayBeSetAside(file))
            throw;
        m_pages.reset();
        file.setAside();
    }
    return startReport();
}

void ctlAHPrintPreview::store(qint64 reportKey, const PageText& text) {
    pages().add(reportKey, text);
}

void ctlAHPrintPreview::store(qint64 reportKey, const PageLine& line) {
    pages().add(reportKey, line);
}

bool ctlAHPrintPreview::storePages(qint64 reportKey) {
    for (;;) {
        {
            const QScopedValueRollback storing(m_storing, true);
            if (pages().finish(reportKey, m_followStoring))
                return true;
        }
        if (!m_goesOn())
            return false;
    }
}

void ctlAHPrintPreview::ShowReport(qint64 ReportKey, bool preview) {
    if (!storePages(ReportKey))
        return;
    const ReportPages report(pages(), ReportKey);
    auto* const form = qobject_cast<QWidget*>(parent());
    const QString title = form != nullptr ? form->windowTitle() : QString();
    if (!preview) {
        printReport(report, title, m_followPrint);
        return;
    }
    // A progress that is over has nothing to say beside the pages; hidden, the form is still modal to its
    // end.
    if (form != nullptr)
        form->window()->hide();
    installedPreview()(report, title, form);
}

} // namespace tarnwell
