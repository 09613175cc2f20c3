#include "SourceFiles.h"

#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <string>

namespace {

using namespace tarnwell::test;

/// The names declared under Q_SIGNALS in our headers. A signal that fires another runs guarded slots.
std::set<std::string> signalNames() {
    std::set<std::string> names;
    for (const auto& file : sourceFiles()) {
        std::istringstream text(readFile("src" / file));
        bool inside = false;
        for (std::string line; std::getline(text, line);) {
            if (line.ends_with(':') && !line.starts_with(' '))
                inside = line == "Q_SIGNALS:";
            const auto begin = line.find("void ");
            if (inside && begin != std::string::npos)
                names.insert(line.substr(begin + 5, line.find('(') - begin - 5));
        }
    }
    return names;
}

/// The calls of connect() in a text, each with everything between its parentheses.
std::vector<std::string> connectionsIn(const std::string& text) {
    constexpr std::string_view call = "connect(";
    std::vector<std::string> found;
    for (auto at = text.find(call); at != std::string::npos; at = text.find(call, at + 1)) {
        if (at > 0 && std::isalpha(static_cast<unsigned char>(text[at - 1])) != 0)
            continue; // disconnect
        auto end = at + call.size();
        for (int depth = 1; depth > 0 && end < text.size(); ++end)
            depth += text[end] == '(' ? 1 : text[end] == ')' ? -1 : 0;
        found.push_back(text.substr(at, end - at));
    }
    return found;
}

/// Nothing of ours runs in it that could raise: it is guarded, a routine of the toolkit's, or fires a signal
/// only.
bool isSafe(const std::string& connection, const std::set<std::string>& signalsOfOurs) {
    if (connection.find("guarded(") != std::string::npos)
        return true;
    const auto slot = connection.find_last_of('&');
    const auto lambda = connection.find('{');
    if (lambda == std::string::npos) {
        const auto name = connection.find("::", slot) + 2;
        return connection.compare(slot, 2, "&Q") == 0 ||
               signalsOfOurs.contains(connection.substr(name, connection.find(')', name) - name));
    }
    const std::string body = connection.substr(lambda + 1, connection.find('}', lambda) - lambda - 1);
    return body.find_first_not_of(" \n") == body.find("Q_EMIT") && body.find(';') == body.rfind(';');
}

} // namespace

// An error that crosses from a slot into the toolkit ends the program without a message.
TEST(GuardedSlots, EverySlotHandsItsErrorsToTheOuterHandler) {
    const std::set<std::string> signalsOfOurs = signalNames();
    std::size_t seen = 0;
    for (const auto& file : sourceFiles())
        for (const std::string& connection : connectionsIn(readFile("src" / file))) {
            EXPECT_TRUE(isSafe(connection, signalsOfOurs)) << file << ": " << connection;
            ++seen;
        }
    EXPECT_GT(seen, 100U) << "the connections were not found";
}
