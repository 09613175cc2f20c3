#include "support/MessageScript.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace tarnwell::test {

MessageScript::MessageScript(std::initializer_list<Answer> answers)
    : m_answers(answers), m_before(setMessagePresenter(ask())) {}

MessageScript::~MessageScript() {
    setMessagePresenter(m_before);
}

Ask MessageScript::ask() {
    return [this](const MessageRequest& request) { return present(request); };
}

Answer MessageScript::present(const MessageRequest& request) {
    m_shown.push_back(request);
    if (m_answers.empty()) {
        ADD_FAILURE() << "unexpected message: " << request.title.toStdString() << ": "
                      << request.text.toStdString();
        // A question that is asked until it gets another answer would be asked for ever.
        if (++m_unexpected == 20)
            throw std::runtime_error("too many unexpected messages");
        return defaultAnswer(request);
    }
    const Answer answer = m_answers.front();
    m_answers.pop_front();
    return answer;
}

} // namespace tarnwell::test
