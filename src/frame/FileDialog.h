#pragma once

#include <QString>

#include <functional>
#include <optional>

class QWidget;

namespace tarnwell {

/// What a file dialog asks for.
struct FileRequest {
    QString title;
    QString filter;     ///< "*.mdb"
    QString start = {}; ///< The file that is selected at first; its folder if there is no such file.
};

/// The file that was chosen, with the platform's separators; nothing when the dialog was cancelled.
using FileChooser = std::function<std::optional<QString>(QWidget* owner, const FileRequest& request)>;

/// Asks for an existing file.
[[nodiscard]] std::optional<QString> chooseFile(QWidget* owner, const FileRequest& request);

/// Null restores the toolkit's dialog. Returns the chooser before.
FileChooser setFileChooser(FileChooser chooser);

} // namespace tarnwell
