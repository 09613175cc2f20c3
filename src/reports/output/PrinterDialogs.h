#pragma once

#include "reports/output/PrintDialog.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

class QPrinter;
class QWidget;

namespace tarnwell {

/// The system's dialogs around printing. Each returns false, or an empty name, when it was cancelled; the
/// printer is unchanged then.
struct PrinterDialogs {
    /// Which printer and paper: the print set-up.
    std::function<bool(QPrinter& printer, QWidget* owner)> setUp;
    /// Which printer, pages and copies, before a print.
    std::function<bool(QPrinter& printer, QWidget* owner)> print;
    /// The paper.
    std::function<bool(QPrinter& printer, QWidget* owner)> pageSetUp;
    /// A name for a PDF, from a proposed one; asks before a file is to be replaced.
    std::function<QString(const QString& proposed, QWidget* owner)> savePdfAs;
};

/// Replaces the dialogs, for tests; a member left empty is the system's own. Returns those before.
PrinterDialogs setPrinterDialogs(PrinterDialogs dialogs);

/// The printer that reports are printed on: the system's default one, with its own paper, until another is
/// chosen.
/// Raises PrinterError when there is none.
[[nodiscard]] QPrinter& currentPrinter();
/// The current printer's paper once that printer was asked for, else the one that was chosen for PDFs;
/// nothing before, so that nobody has to wait for the search for a printer.
[[nodiscard]] std::optional<QPageLayout> paperInUse();
/// One print on the current printer, from its dialog to its end. Then the printer prints all pages again, one
/// copy, in order, and is a printer again where the print went into a file; which printer, its paper and its
/// sides stay as they were chosen.
class OnePrint {
public:
    /// Raises PrinterError when there is no printer.
    OnePrint();
    ~OnePrint();
    OnePrint(const OnePrint&) = delete;
    OnePrint& operator=(const OnePrint&) = delete;

    /// Shows the print dialog; false when it was cancelled.
    bool ask(QWidget* owner, PageChoice pages);

private:
    PrinterChoice m_before;
    bool m_isChosen = false;
};

/// Replaces the printer, for tests; null goes back to the system's own. A paper that was chosen is forgotten.
void setCurrentPrinter(std::unique_ptr<QPrinter> printer);

/// The dialog on the current printer; raises PrinterError when there is none.
bool showPrinterSetup(QWidget* owner);
/// The paper that was chosen: the current printer's or, where there is no printer, that of PDFs. Nothing when
/// it was cancelled.
[[nodiscard]] std::optional<QPageLayout> choosePaper(QWidget* owner);
[[nodiscard]] QString askForPdfName(const QString& proposed, QWidget* owner);

} // namespace tarnwell
