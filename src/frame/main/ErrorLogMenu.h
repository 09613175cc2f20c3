#pragma once

#include <QString>
#include <QStringList>

namespace tarnwell {

/// A text editor of the desktop and what makes it stay until its window is closed.
struct TextEditor {
    QString program; ///< Empty when there is none.
    QStringList arguments;
};

/// The first of the known editors that this machine has.
[[nodiscard]] TextEditor desktopTextEditor();

/// Opens the log in `gLogPath` in the text editor, whether or not the file exists, and waits until the editor
/// ends. The menu's log is not the one that errors are written to.
void showErrorLog();

/// Asks, then deletes the log in `gLogPath`. Raises FileNotFound (53) when there is none, FileAccess (75)
/// when it can't be deleted.
void deleteErrorLog();

} // namespace tarnwell
