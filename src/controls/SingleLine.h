#pragma once

class QLineEdit;

namespace tarnwell {

/// Keeps what comes into a line on one line from here on: each run of line breaks and tabs becomes one blank,
/// those at the end go. A cell that was copied from a spreadsheet ends in a line break, which would be stored
/// without being seen. Breaks that the line holds already stay as they are.
void keepOnOneLine(QLineEdit& line);

} // namespace tarnwell
