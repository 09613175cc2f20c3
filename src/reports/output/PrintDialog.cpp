#include "reports/output/PrintDialog.h"

#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPageRanges>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

#include <algorithm>

namespace tarnwell {

namespace {

/// The lines of the box for every second page.
enum PageSet { AllPages, OddPages, EvenPages };

QPageRanges rangeOf(int from, int to) {
    QPageRanges pages;
    pages.addRange(from, std::max(from, to));
    return pages;
}

} // namespace

PrinterChoice::PrinterChoice(const QPrinter& printer)
    : m_name(printer.printerName()), m_paper(printer.pageLayout()), m_sides(printer.duplex()),
      m_colors(printer.colorMode()) {}

void PrinterChoice::restore(QPrinter& printer) const {
    if (printer.printerName() != m_name) {
        printer.setOutputFileName({}); // a printer again, where it has become a file
        printer.setPrinterName(m_name);
    }
    printer.setDuplex(m_sides);
    printer.setColorMode(m_colors);
    printer.setPageLayout(m_paper);
}

QPageSize ownPaper(const QString& printerName) {
    const QPageSize paper = QPrinterInfo::printerInfo(printerName).defaultPageSize();
    return paper.isValid() ? paper : QPageSize(QPageSize::Letter);
}

PrintDialog::PrintDialog(QPrinter* printer, PageChoice pages, QWidget* owner)
    : QPrintDialog(printer, owner), m_pages(pages) {
    setOption(PrintCurrentPage);
    setMinMax(1, pages.count);
    setFromTo(1, pages.count);
}

bool PrintDialog::isChosen(const char* button) const {
    const auto* const choice = part<QRadioButton>(button);
    return choice != nullptr && choice->isChecked();
}

QPageRanges PrintDialog::chosenPages() const {
    QPageRanges asked = rangeOf(1, m_pages.count);
    if (isChosen("printRange"))
        asked = rangeOf(part<QSpinBox>("from")->value(), part<QSpinBox>("to")->value());
    else if (isChosen("printCurrentPage"))
        asked = rangeOf(m_pages.current, m_pages.current);
    else if (isChosen("pagesRadioButton"))
        asked = QPageRanges::fromString(part<QLineEdit>("pagesLineEdit")->text());
    const auto* const sets = part<QComboBox>("pageSetCombo");
    const int set = sets->isEnabled() ? sets->currentIndex() : AllPages;
    QPageRanges pages;
    for (int page = 1; page <= m_pages.count; ++page)
        if (asked.contains(page) && (set == AllPages || (page % 2 == 1) == (set == OddPages)))
            pages.addPage(page);
    return pages;
}

void PrintDialog::accept() {
    auto* const all = part<QRadioButton>("printAll");
    auto* const sets = part<QComboBox>("pageSetCombo");
    if (all == nullptr || sets == nullptr) {
        QPrintDialog::accept();
        return;
    }
    const QPageRanges pages = chosenPages();
    if (pages.isEmpty()) {
        MsgBox({.text = QStringLiteral("The report has no such pages. Type pages and ranges from 1 to %1, "
                                       "like 1,3,5-8.")
                            .arg(m_pages.count),
                .title = windowTitle(),
                .icon = MessageIcon::Exclamation});
        return;
    }
    all->setChecked(true);
    sets->setCurrentIndex(AllPages);
    QPrintDialog::accept();
    if (pages != rangeOf(1, m_pages.count)) {
        printer()->setPrintRange(QPrinter::PageRange);
        printer()->setPageRanges(pages);
    }
}

bool execKeepingPaper(QPrintDialog& dialog) {
    QPrinter& printer = *dialog.printer();
    const PrinterChoice before(printer);
    bool isPaperAsked = true;
    if (const auto* properties = dialog.findChild<QPushButton*>(QStringLiteral("properties"))) {
        isPaperAsked = false;
        QObject::connect(properties, &QPushButton::clicked, &dialog, guarded([&] { isPaperAsked = true; }));
    }
    if (dialog.exec() != QDialog::Accepted) {
        before.restore(printer);
        return false;
    }
    const bool isOther = printer.outputFileName().isEmpty() && printer.printerName() != before.name();
    if (!isPaperAsked)
        printer.setPageSize(isOther ? ownPaper(printer.printerName()) : before.paper().pageSize());
    return true;
}

} // namespace tarnwell
