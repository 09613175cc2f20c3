#include "frame/FileDialog.h"

#include <QDir>
#include <QFileDialog>

#include <utility>

namespace tarnwell {

namespace {

FileChooser& replacedChooser() {
    static FileChooser chooser;
    return chooser;
}

QString askToolkit(QWidget* owner, const FileRequest& request) {
    switch (request.wanted) {
    case FileWanted::Existing:
        break;
    case FileWanted::New:
        return QFileDialog::getSaveFileName(owner, request.title, request.start, request.filter, nullptr,
                                            QFileDialog::DontConfirmOverwrite);
    case FileWanted::Folder:
        return QFileDialog::getExistingDirectory(owner, request.title, request.start);
    }
    return QFileDialog::getOpenFileName(owner, request.title, request.start, request.filter);
}

} // namespace

std::optional<QString> chooseFile(QWidget* owner, const FileRequest& request) {
    if (replacedChooser())
        return replacedChooser()(owner, request);
    const QString chosen = askToolkit(owner, request);
    if (chosen.isEmpty())
        return std::nullopt;
    return QDir::toNativeSeparators(chosen);
}

FileChooser setFileChooser(FileChooser chooser) {
    return std::exchange(replacedChooser(), std::move(chooser));
}

} // namespace tarnwell
