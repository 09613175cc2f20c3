#pragma once

#include <QString>

#include <functional>
#include <optional>

class QWidget;

namespace tarnwell {

enum class FileWanted {
    Existing,
    New, ///< One that does not exist yet; one that does can be chosen too, and nothing is asked about it.
    Folder
};

/// What a file dialog asks for.
struct FileRequest {
    QString title;
    QString filter;     ///< "*.mdb"; not for a folder.
    QString start = {}; ///< The file that is selected at first; its folder if there is no such file.
    FileWanted wanted = FileWanted::Existing;
};

/// The file or folder that was chosen, with the platform's separators; nothing when the dialog was cancelled.
using FileChooser = std::function<std::optional<QString>(QWidget* owner, const FileRequest& request)>;

/// Asks for a file or folder.
[[nodiscard]] std::optional<QString> chooseFile(QWidget* owner, const FileRequest& request);

/// Null restores the toolkit's dialog. Returns the chooser before.
FileChooser setFileChooser(FileChooser chooser);

} // namespace tarnwell
