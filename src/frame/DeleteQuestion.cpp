#include "frame/DeleteQuestion.h"

#include "runtime/MsgBox.h"

namespace tarnwell {

bool isDeleteConfirmed(const QString& question) {
    return MsgBox({.text = question,
                   .title = QStringLiteral("Confirm Delete"),
                   .buttons = MessageButtons::YesNo,
                   .icon = MessageIcon::Question}) == Answer::Yes;
}

} // namespace tarnwell
