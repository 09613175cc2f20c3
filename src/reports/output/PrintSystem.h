#pragma once

#include "reports/drawing/PageSurface.h"

#include <QPrinter>
#include <QString>

namespace tarnwell {

/// Whether the printer is a queue of Unix' printing system, which takes PDFs. The toolkit's own way there
/// says nothing of a job that was refused, and sends what was printed when a print is cancelled.
[[nodiscard]] bool isQueue(const QPrinter& printer);

/// Hands a PDF to the printer's queue with its copies, paper, sides and whatever else its dialog asked for.
/// The pages are those that were asked for already. Returns when the queue has taken a copy of the file.
/// Raises PrinterError with the printing system's reason when it does not take it or can't be reached.
void sendToQueue(const QPrinter& printer, const QString& pdf, const QString& title, Orientation orientation);

} // namespace tarnwell
