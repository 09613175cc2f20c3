#pragma once

#include "reports/output/PrintDialog.h"

#include <QString>

#include <functional>
#include <memory>

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
/// The current printer once it was asked for; null before, so that nobody has to wait for the search for one.
[[nodiscard]] const QPrinter* printerInUse();
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

/// Replaces the printer, for tests; null goes back to the system's own.
void setCurrentPrinter(std::unique_ptr<QPrinter> printer);

/// The dialogs, on the current printer. All but the last raise PrinterError when there is no printer.
bool showPrinterSetup(QWidget* owner);
bool showPageSetup(QWidget* owner);
[[nodiscard]] QString askForPdfName(const QString& proposed, QWidget* owner);

} // namespace tarnwell
