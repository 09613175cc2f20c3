#pragma once

#include <QString>

#include <functional>
#include <span>

namespace tarnwell {

enum class MessageIcon { None, Critical, Question, Exclamation, Information };
/// From the first button to the last.
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

/// What a message box shows and which answer Enter gives.
struct MessageRequest {
    QString text;
    QString title;
    MessageButtons buttons = MessageButtons::Ok;
    MessageIcon icon = MessageIcon::None;
    int defaultButton = 1; ///< 1 is the first.
};

/// How a rule asks its questions: shows the message, returns the answer. It may handle events meanwhile.
using Ask = std::function<Answer(const MessageRequest&)>;

/// The answers that a set of buttons offers, from the first button to the last.
[[nodiscard]] std::span<const Answer> answersOf(MessageButtons buttons);
/// What Enter answers; the nearest button for a number that the message does not have.
[[nodiscard]] Answer defaultAnswer(const MessageRequest& request);

/// Shows the message by the presenter of this process and waits for the answer. Events are handled meanwhile.
Answer MsgBox(const MessageRequest& request);
/// The program installs the toolkit's message box, tests a script. Returns the presenter before. Without one
/// the text goes to standard error and the default answer is returned.
Ask setMessagePresenter(Ask presenter);

} // namespace tarnwell
