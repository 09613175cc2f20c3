#include "frame/main/ErrorLogMenu.h"

#include "data/DiskPath.h"
#include "data/RunTimeError.h"
#include "runtime/MsgBox.h"
#include "runtime/ProgramStarter.h"
#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"

#include <QFile>
#include <QStandardPaths>

#include <array>

namespace tarnwell {

namespace {

/// Some editors hand the file to a running instance and return at once; an option prevents that.
struct KnownEditor {
    const char* program;
    const char* stay; ///< The option; empty for an editor that needs none.
};

constexpr std::array<KnownEditor, 11> knownEditors{{
    {"gnome-text-editor", "--standalone"},
    {"gedit", "--wait"},
    {"kate", "--block"},
    {"mousepad", ""},
    {"xed", "--wait"},
    {"pluma", ""},
    {"featherpad", "--standalone"},
    {"leafpad", ""},
    {"l3afpad", ""},
    {"geany", "--new-instance"},
    {"xdg-open", ""},
}};

QString menuLogFile() {
    return pathOnDisk(gLogPath + QStringLiteral("ErrorLog.txt"));
}

} // namespace

TextEditor desktopTextEditor() {
    if (const QString folder = GetWindowsFolder(); !folder.isEmpty())
        return {folder + QStringLiteral("\\NOTEPAD"), {}};
    for (const KnownEditor& editor : knownEditors)
        if (const QString found = QStandardPaths::findExecutable(QLatin1String(editor.program));
            !found.isEmpty())
            return {found, QString::fromLatin1(editor.stay).split(u' ', Qt::SkipEmptyParts)};
    return {};
}

void showErrorLog() {
    const TextEditor editor = desktopTextEditor();
    ShellAndWait(editor.program, editor.arguments + QStringList{menuLogFile()});
}

void deleteErrorLog() {
    const Answer answer = MsgBox({.text = QStringLiteral("Delete the Error Log File?"),
                                  .title = QStringLiteral("Delete Confirmation"),
                                  .buttons = MessageButtons::OkCancel,
                                  .icon = MessageIcon::Question});
    if (answer != Answer::Ok)
        return;
    const QString path = menuLogFile();
    if (!QFile::exists(path))
        raise(Failure::FileNotFound, path);
    if (!QFile::remove(path))
        raise(Failure::FileAccess, path);
}

} // namespace tarnwell
