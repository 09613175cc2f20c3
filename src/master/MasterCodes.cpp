#include "master/MasterCodes.h"

#include "runtime/modFormatFunctions.h"

namespace tarnwell {

namespace {

constexpr qint64 employeeTypes = 1;
constexpr qint64 taskCategories = 2;
constexpr qint64 optionNames = 4;

bool isForemanType(const Value& code1, const Value& description) {
    return FieldText(description).toUpper() == QLatin1String("FOREMAN") && code1.toLong() == employeeTypes;
}

bool confirmed(const Ask& ask, const QString& question) {
    return ask({.text = question,
                .title = "Deletion Verification",
                .buttons = MessageButtons::YesNo,
                .icon = MessageIcon::Critical,
                .defaultButton = 2}) == Answer::Yes;
}

} // namespace

QString rowsOfList(qint64 code1) {
    return "Code1=" + QString::number(code1);
}

bool confirmCodeDeletion(const Ask& ask, const Value& code1, const Value& description, qint64 list) {
    if (isForemanType(code1, description)) {
        ask({.text = "You cannot delete the foreman type!",
             .title = "Deletion Error",
             .icon = MessageIcon::Critical});
        return false;
    }
    if (!confirmed(ask, "Delete current item?"))
        return false;
    const bool tasksReferToIt = list == taskCategories || list == optionNames;
    return !tasksReferToIt ||
           confirmed(ask, "If you DELETE this item the tasks associated to it will NOT be available.\n"
                          "Do you want to delete the current item?");
}

} // namespace tarnwell
