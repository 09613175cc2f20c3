#include "master/MasterTasks.h"

#include "runtime/modFormatFunctions.h"

namespace tarnwell {

QString tasksOfCategory(qint64 codeKey) {
    return "CodeKey=" + QString::number(codeKey);
}

bool confirmTaskDeletion(const Ask& ask, const Value& name) {
    return ask({.text = "Delete the " + FieldText(name) + " task?",
                .title = "Delete Verification",
                .buttons = MessageButtons::YesNo}) != Answer::No;
}

} // namespace tarnwell
