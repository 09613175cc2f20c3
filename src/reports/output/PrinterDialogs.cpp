#include "reports/output/PrinterDialogs.h"

#include "data/RunTimeError.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QPageSetupDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTabWidget>

#include <utility>

namespace tarnwell {

namespace {

std::unique_ptr<QPrinter>& chosenPrinter() {
    static std::unique_ptr<QPrinter> printer;
    return printer;
}

/// What paper is chosen on where there is no printer: it prints nothing.
std::unique_ptr<QPrinter>& paperOfPdfs() {
    static std::unique_ptr<QPrinter> paper;
    return paper;
}

PrinterDialogs& replacedDialogs() {
    static PrinterDialogs dialogs;
    return dialogs;
}

/// A printer that no longer exists in the system can't be chosen again after another one or a file took its
/// place: the next print looks for one.
void dropLostPrinter(const QString& name) {
    if (chosenPrinter() != nullptr && chosenPrinter()->printerName() != name)
        chosenPrinter().reset();
}

/// Shows a dialog on the current printer.
bool ask(const std::function<bool(QPrinter&)>& dialog) {
    const QString name = currentPrinter().printerName();
    if (dialog(currentPrinter()))
        return true;
    dropLostPrinter(name);
    return false;
}

QPrinterInfo systemPrinter() {
    const QPrinterInfo printer = QPrinterInfo::defaultPrinter();
    const QStringList names = QPrinterInfo::availablePrinterNames();
    return printer.isNull() && !names.isEmpty() ? QPrinterInfo::printerInfo(names.front()) : printer;
}

/// The toolkit has no dialog that only chooses: this is the one for printing, without what is for one print.
bool setUp(QPrinter& printer, QWidget* owner) {
    QPrintDialog dialog(&printer, owner);
    dialog.setWindowTitle(QStringLiteral("Print Setup"));
    dialog.setOptions(QAbstractPrintDialog::PrintShowPageSize);
    if (const auto* buttons = dialog.findChild<QDialogButtonBox*>())
        if (QPushButton* print = buttons->button(QDialogButtonBox::Ok))
            print->setText(QStringLiteral("OK"));
    auto* const tabs = dialog.findChild<QTabWidget*>(QStringLiteral("tabs"));
    if (auto* const copies = dialog.findChild<QWidget*>(QStringLiteral("copiesTab")); tabs && copies)
        tabs->removeTab(tabs->indexOf(copies));
    return execKeepingPaper(dialog);
}

bool print(QPrinter& printer, PageChoice pages, QWidget* owner) {
    PrintDialog dialog(&printer, pages, owner);
    return execKeepingPaper(dialog);
}

bool hasPrinter() {
    return chosenPrinter() != nullptr || !systemPrinter().isNull();
}

QPrinter& pdfPaper() {
    std::unique_ptr<QPrinter>& paper = paperOfPdfs();
    if (!paper) {
        paper = std::make_unique<QPrinter>();
        paper->setOutputFormat(QPrinter::PdfFormat);
        paper->setPageLayout({QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF()});
        qAddPostRoutine([] { paperOfPdfs().reset(); });
    }
    return *paper;
}

bool pageSetUp(QPrinter& printer, QWidget* owner) {
    QPageSetupDialog dialog(&printer, owner);
    return dialog.exec() == QDialog::Accepted;
}

QString savePdfAs(const QString& proposed, QWidget* owner) {
    QFileDialog dialog(owner, QStringLiteral("Save as PDF"), {}, QStringLiteral("PDF (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.selectFile(proposed);
    const bool isChosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    return isChosen ? dialog.selectedFiles().front() : QString();
}

} // namespace

PrinterDialogs setPrinterDialogs(PrinterDialogs dialogs) {
    return std::exchange(replacedDialogs(), std::move(dialogs));
}

QPrinter& currentPrinter() {
    std::unique_ptr<QPrinter>& printer = chosenPrinter();
    if (!printer) {
        const QPrinterInfo system = systemPrinter();
        if (system.isNull())
            raise(Failure::PrinterError,
                  QStringLiteral("There is no printer. Add one in the system's settings, "
                                 "or save the report as a PDF from its preview."));
        printer = std::make_unique<QPrinter>(system, QPrinter::HighResolution);
        printer->setPageSize(ownPaper(system.printerName()));
        // The toolkit's own printers must go before the application does.
        qAddPostRoutine([] { chosenPrinter().reset(); });
    }
    return *printer;
}

std::optional<QPageLayout> paperInUse() {
    const QPrinter* const printer = chosenPrinter() != nullptr ? chosenPrinter().get() : paperOfPdfs().get();
    return printer != nullptr ? std::optional(printer->pageLayout()) : std::nullopt;
}

void setCurrentPrinter(std::unique_ptr<QPrinter> printer) {
    chosenPrinter() = std::move(printer);
    paperOfPdfs().reset();
}

bool showPrinterSetup(QWidget* owner) {
    const auto& dialog = replacedDialogs().setUp;
    return ask([&](QPrinter& printer) { return dialog ? dialog(printer, owner) : setUp(printer, owner); });
}

OnePrint::OnePrint() : m_before(currentPrinter()) {}

OnePrint::~OnePrint() {
    if (!m_isChosen || chosenPrinter() == nullptr)
        return;
    if (!chosenPrinter()->outputFileName().isEmpty()) {
        m_before.restore(*chosenPrinter());
        dropLostPrinter(m_before.name());
        if (chosenPrinter() == nullptr)
            return;
    }
    QPrinter& printer = *chosenPrinter();
    printer.setPrintRange(QPrinter::AllPages);
    printer.setPageRanges({});
    printer.setPageOrder(QPrinter::FirstPageFirst);
    printer.setCopyCount(1);
    printer.setCollateCopies(true);
}

bool OnePrint::ask(QWidget* owner, PageChoice pages) {
    const auto& dialog = replacedDialogs().print;
    m_isChosen = tarnwell::ask(
        [&](QPrinter& printer) { return dialog ? dialog(printer, owner) : print(printer, pages, owner); });
    return m_isChosen;
}

std::optional<QPageLayout> choosePaper(QWidget* owner) {
    const auto& dialog = replacedDialogs().pageSetUp;
    QPrinter& printer = hasPrinter() ? currentPrinter() : pdfPaper();
    const bool isChosen = dialog ? dialog(printer, owner) : pageSetUp(printer, owner);
    return isChosen ? std::optional(printer.pageLayout()) : std::nullopt;
}

QString askForPdfName(const QString& proposed, QWidget* owner) {
    const auto& dialog = replacedDialogs().savePdfAs;
    return dialog ? dialog(proposed, owner) : savePdfAs(proposed, owner);
}

} // namespace tarnwell
