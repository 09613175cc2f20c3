#include "runtime/MsgBox.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace tarnwell {

namespace {

constexpr std::array okAnswers{Answer::Ok};
constexpr std::array okCancelAnswers{Answer::Ok, Answer::Cancel};
constexpr std::array yesNoAnswers{Answer::Yes, Answer::No};
constexpr std::array yesNoCancelAnswers{Answer::Yes, Answer::No, Answer::Cancel};

/// For tools and for a program that has no screen yet.
Answer presentOnStandardError(const MessageRequest& request) {
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(request.title), qUtf8Printable(request.text));
    return defaultAnswer(request);
}

Ask& presenter() {
    static Ask installed;
    return installed;
}

} // namespace

std::span<const Answer> answersOf(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::OkCancel:
        return okCancelAnswers;
    case MessageButtons::YesNo:
        return yesNoAnswers;
    case MessageButtons::YesNoCancel:
        return yesNoCancelAnswers;
    case MessageButtons::Ok:
        break;
    }
    return okAnswers;
}

Answer defaultAnswer(const MessageRequest& request) {
    const std::span<const Answer> answers = answersOf(request.buttons);
    const int last = static_cast<int>(answers.size());
    return answers[static_cast<std::size_t>(std::clamp(request.defaultButton, 1, last)) - 1];
}

Answer MsgBox(const MessageRequest& request) {
    return presenter() ? presenter()(request) : presentOnStandardError(request);
}

Ask setMessagePresenter(Ask installed) {
    return std::exchange(presenter(), std::move(installed));
}

} // namespace tarnwell
