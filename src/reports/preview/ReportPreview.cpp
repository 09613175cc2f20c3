#include "reports/preview/ReportPreview.h"

#include "data/RunTimeError.h"
#include "reports/output/PrinterDialogs.h"
#include "reports/preview/ReportDocument.h"
#include "runtime/MsgBox.h"
#include "runtime/Remembered.h"
#include "runtime/RunTime.h"

#include <QDir>
#include <QFileInfo>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressDialog>
#include <QStandardPaths>

#include <functional>
#include <optional>

namespace tarnwell {

namespace {

const QString messageTitle = QStringLiteral("Report");
const QString folderName = QStringLiteral("PDF folder"); ///< Where the last PDF went.
const QString notPrinted = QStringLiteral("The report was not printed.");
constexpr int progressAfterMilliseconds = 400;
constexpr int progressWidth = 360;

bool isStopped(const QPrinter& printer) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(printer.printerName());
    return !info.isNull() && info.state() == QPrinter::Error;
}

/// A window with the pages done and Cancel, which opens when the work takes longer than a moment.
class PageProgress {
public:
    PageProgress(const QString& text, QWidget* owner) : m_window(owner) {
        m_window.setObjectName(QStringLiteral("pageProgress"));
        m_window.setWindowTitle(messageTitle);
        m_window.setLabelText(text);
        m_window.setCancelButtonText(QStringLiteral("&Cancel"));
        m_window.setWindowModality(Qt::WindowModal);
        m_window.setMinimumDuration(progressAfterMilliseconds);
        m_window.setMinimumWidth(progressWidth);
    }

    [[nodiscard]] FollowPages follow() {
        return [this](qint64 done, qint64 pages) {
            m_window.setMaximum(static_cast<int>(pages));
            m_window.setValue(static_cast<int>(done));
            return !m_window.wasCanceled();
        };
    }

private:
    QProgressDialog m_window;
};

/// Runs work on the report; a message says what failed, and nothing else happens.
template <typename Result>
Result orSay(const QString& failure, Result otherwise, const std::function<Result()>& work) {
    try {
        return work();
    } catch (const RunTimeError& error) {
        MsgBox({.text = QStringLiteral("%1\n\n%2").arg(failure, error.description()),
                .title = messageTitle,
                .icon = MessageIcon::Exclamation});
        return otherwise;
    }
}

/// Where a printed report went; a printer that is stopped keeps it until somebody starts it again.
QString sentTo(const QPrinter& printer) {
    if (!printer.outputFileName().isEmpty())
        return QStringLiteral("Saved as %1").arg(QDir::toNativeSeparators(printer.outputFileName()));
    const QString name = printer.printerName();
    return isStopped(printer) ? QStringLiteral("The report waits for %1, which is stopped.").arg(name)
                              : QStringLiteral("Sent to %1.").arg(name);
}

QString printFromPreview(ReportDocument& pages, const ReportPages& report, const QString& title, int page,
                         QWidget* owner) {
    return orSay<QString>(notPrinted, {}, [&]() -> QString {
        currentPrinter().setDocName(title); // The dialog proposes a file of that name.
        OnePrint print;
        if (!print.ask(owner, {.count = pages.count(), .current = page}))
            return {};
        QPrinter& printer = currentPrinter();
        pages.setPaper(printer.pageLayout());
        PageProgress progress(QStringLiteral("Printing %1").arg(title), owner);
        if (!printPages(report, printer, title, progress.follow()))
            return QStringLiteral("Printing was cancelled.");
        return sentTo(printer);
    });
}

bool setUpFromPreview(ReportDocument& pages, QWidget* owner) {
    return orSay<bool>(QStringLiteral("The paper can't be chosen."), false, [&] {
        const std::optional<QPageLayout> paper = choosePaper(owner);
        if (paper)
            pages.setPaper(*paper);
        return paper.has_value();
    });
}

/// "Lot Budget 2002-05-17.pdf" in the folder of the PDF before, else among the documents.
QString proposedName(const QString& title) {
    QString folder = remembered(folderName);
    for (const auto place : {QStandardPaths::DocumentsLocation, QStandardPaths::HomeLocation})
        if (folder.isEmpty() || !QFileInfo(folder).isDir())
            folder = QStandardPaths::writableLocation(place);
    const QString day = Format(Today(), QStringLiteral("yyyy-mm-dd"));
    return QDir(folder).filePath(QStringLiteral("%1 %2.pdf").arg(title, day));
}

} // namespace

QString ReportPreview::save(const ReportPages& report, const QString& title, const QPageSize& paper,
                            QWidget* owner) {
    const QString path = askForPdfName(proposedName(title), owner);
    if (path.isEmpty())
        return {};
    return orSay<QString>(QStringLiteral("The report was not saved."), {}, [&] {
        PageProgress progress(QStringLiteral("Saving %1").arg(title), owner);
        if (!savePdf(report, path, title, paper, progress.follow()))
            return QStringLiteral("Saving was cancelled.");
        remember(folderName, QFileInfo(path).absolutePath());
        return QStringLiteral("Saved as %1").arg(QDir::toNativeSeparators(path));
    });
}

void ReportPreview::show(const ReportPages& report, const QString& title, QWidget* owner) {
    ReportDocument pages(report);
    if (const std::optional<QPageLayout> paper = paperInUse())
        pages.setPaper(*paper);
    PreviewWindow window(
        pages, title,
        {.print = [&](int page,
                      QWidget* preview) { return printFromPreview(pages, report, title, page, preview); },
         .savePdf = [&](QWidget* preview) { return save(report, title, pages.paper(), preview); },
         .setUpPage = [&](QWidget* preview) { return setUpFromPreview(pages, preview); }},
        m_look);
    window.showModal(owner);
}

void printReport(const ReportPages& report, const QString& title, const FollowPages& follow) {
    if (report.pageCount() == 0)
        return;
    const bool isPrinted =
        orSay<bool>(notPrinted, false, [&] { return printPages(report, currentPrinter(), title, follow); });
    if (isPrinted && isStopped(currentPrinter()))
        MsgBox({.text = sentTo(currentPrinter()), .title = messageTitle, .icon = MessageIcon::Information});
}

} // namespace tarnwell
