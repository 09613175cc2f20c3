#pragma once

#include <QString>

#include <vector>

namespace tarnwell::tour {

/// Follows this program's memory over many rounds of the same work.
class MemoryWatch {
public:
    /// Notes what is in use after a round, and returns it in words; counted from 1.
    QString note(int round);
    /// Kilobytes by which the used heap grew each round over the second half of them: the first half fills
    /// caches. 0 for fewer than four rounds, or where the system does not say.
    [[nodiscard]] double growthPerRound() const;

private:
    std::vector<double> m_heap; ///< In kilobytes, after each round.
};

} // namespace tarnwell::tour
