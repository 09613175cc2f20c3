#include "frame/main/DatabaseStart.h"

#include "frame/main/frmFirstStart.h"
#include "runtime/DatabaseChoice.h"
#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"
#include "runtime/ProgramFolders.h"
#include "runtime/UpToDateDatabase.h"
#include "runtime/modErrorRoutines.h"

namespace tarnwell {

namespace {

bool isChosen(StartReason reason, QWidget* owner) {
    auto& form = theForm<frmFirstStart>();
    form.Reason = reason;
    form.Show(Screen::Modality::Modal, owner);
    return !form.Cancelled;
}

/// Shows why not. Ends the program where no choice would help.
bool isOpened() {
    try {
        openDatabaseUpToDate();
        return true;
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
        if (!canChooseAfter(error))
            endProgram();
        return false;
    }
}

void reportMissingResource() {
    const QString missing = missingResource(programFolders());
    if (!missing.isEmpty())
        MsgBox(
            {.text = QStringLiteral("Tarnwell is not installed completely. This folder is missing:\n\n%1\n\n"
                                    "Help pages and the widths of columns come from there. Install Tarnwell "
                                    "again; your data is not touched by that.")
                         .arg(missing),
             .title = QStringLiteral("Tarnwell"),
             .icon = MessageIcon::Exclamation});
}

} // namespace

bool openDatabaseAtStart(QWidget* owner) {
    reportMissingResource();
    if (isDatabaseChoiceOpen() && isDatabaseFileMissing() && !isChosen(StartReason::FirstStart, owner))
        return false;
    while (!isOpened())
        if (!isChosen(StartReason::FileUnusable, owner))
            endProgram();
    closeDatabaseChoice();
    return true;
}

} // namespace tarnwell
