#pragma once

#include "runtime/MsgBox.h"

#include <concepts>
#include <deque>
#include <initializer_list>
#include <vector>

namespace tarnwell::test {

/// Answers message boxes from a list, in order, and keeps what was shown. A message behind the last answer
/// gets its default button and fails the test that is running; many of them throw std::runtime_error.
class MessageScript {
public:
    explicit MessageScript(std::initializer_list<Answer> answers = {});
    ~MessageScript();
    MessageScript(const MessageScript&) = delete;
    MessageScript& operator=(const MessageScript&) = delete;

    void expect(std::same_as<Answer> auto... answers) { (m_answers.push_back(answers), ...); }
    [[nodiscard]] const std::vector<MessageRequest>& shown() const { return m_shown; }
    /// For rules that ask through a callback.
    [[nodiscard]] Ask ask();

private:
    Answer present(const MessageRequest& request);

    std::deque<Answer> m_answers;
    std::vector<MessageRequest> m_shown;
    int m_unexpected = 0;
    Ask m_before;
};

} // namespace tarnwell::test
