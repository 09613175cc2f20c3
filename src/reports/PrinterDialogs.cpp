#include "reports/PrinterDialogs.h"

#include "data/RunTimeError.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

#include <utility>

namespace tarnwell {

namespace {

std::unique_ptr<QPrinter>& chosenPrinter() {
    static std::unique_ptr<QPrinter> printer;
    return printer;
}

PrinterDialogs& replacedDialogs() {
    static PrinterDialogs dialogs;
    return dialogs;
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
    dialog.setOptions(QAbstractPrintDialog::PrintShowPageSize | QAbstractPrintDialog::PrintToFile);
    if (const auto* buttons = dialog.findChild<QDialogButtonBox*>())
        if (QPushButton* print = buttons->button(QDialogButtonBox::Ok))
            print->setText(QStringLiteral("OK"));
    return dialog.exec() == QDialog::Accepted;
}

bool print(QPrinter& printer, QWidget* owner) {
    QPrintDialog dialog(&printer, owner);
    return dialog.exec() == QDialog::Accepted;
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
        printer->setPageSize(QPageSize(QPageSize::Letter));
        // The toolkit's own printers must go before the application does.
        qAddPostRoutine([] { chosenPrinter().reset(); });
    }
    return *printer;
}

const QPrinter* printerInUse() {
    return chosenPrinter().get();
}

void setCurrentPrinter(std::unique_ptr<QPrinter> printer) {
    chosenPrinter() = std::move(printer);
}

bool showPrinterSetup(QWidget* owner) {
    const auto& dialog = replacedDialogs().setUp;
    return dialog ? dialog(currentPrinter(), owner) : setUp(currentPrinter(), owner);
}

bool showPrintDialog(QWidget* owner) {
    const auto& dialog = replacedDialogs().print;
    return dialog ? dialog(currentPrinter(), owner) : print(currentPrinter(), owner);
}

bool showPageSetup(QWidget* owner) {
    const auto& dialog = replacedDialogs().pageSetUp;
    return dialog ? dialog(currentPrinter(), owner) : pageSetUp(currentPrinter(), owner);
}

QString askForPdfName(const QString& proposed, QWidget* owner) {
    const auto& dialog = replacedDialogs().savePdfAs;
    return dialog ? dialog(proposed, owner) : savePdfAs(proposed, owner);
}

} // namespace tarnwell
