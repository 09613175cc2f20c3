#pragma once

class QLineEdit;

namespace tarnwell {

/// Keeps pasted and dropped text on one line: line breaks and tabs become one blank, those at the end go. A
/// cell that was copied from a spreadsheet ends in a line break, which would be stored without being seen.
void keepOnOneLine(QLineEdit& line);

} // namespace tarnwell
