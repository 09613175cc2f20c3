#include "reports/preview/ctlAHPrintPreview.h"

#include "data/RunTimeError.h"
#include "data/recordset/Connection.h"
#include "reports/preview/ReportPreview.h"

#include <QScopedValueRollback>
#include <QWidget>

#include <utility>

namespace tarnwell {

namespace {

ctlAHPrintPreview::Preview& installedPreview() {
    static ctlAHPrintPreview::Preview preview = showPreview;
    return preview;
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

qint64 ctlAHPrintPreview::NewReport() {
    if (m_pages == nullptr)
        m_pages =
            std::make_unique<PageStore>(connectionValue(m_connectionString, QLatin1String("Data Source")));
    return m_pages->newReport();
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
    const StoredReport report(pages(), ReportKey);
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
