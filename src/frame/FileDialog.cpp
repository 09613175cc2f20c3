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

} // namespace

std::optional<QString> chooseFile(QWidget* owner, const FileRequest& request) {
    if (replacedChooser())
        return replacedChooser()(owner, request);
    const QString chosen = QFileDialog::getOpenFileName(owner, request.title, request.start, request.filter);
    if (chosen.isEmpty())
        return std::nullopt;
    return QDir::toNativeSeparators(chosen);
}

FileChooser setFileChooser(FileChooser chooser) {
    return std::exchange(replacedChooser(), std::move(chooser));
}

} // namespace tarnwell
