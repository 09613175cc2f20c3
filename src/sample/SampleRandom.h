#pragma once

#include <QtGlobal>

#include <iterator>

namespace tarnwell::sample {

/// A generator of our own: the standard's distributions differ between libraries, and a seed must give the
/// same database everywhere.
class SampleRandom {
public:
    explicit SampleRandom(quint64 seed) : m_state(seed) {}

    /// 0 to `bound` - 1; `bound` is at least 1.
    [[nodiscard]] int below(int bound);
    /// Both ends included.
    [[nodiscard]] int between(int low, int high) { return low + below(high - low + 1); }
    [[nodiscard]] bool chance(int percent) { return below(100) < percent; }
    template <class Range>
    [[nodiscard]] const auto& pick(const Range& range) {
        return range[static_cast<std::size_t>(below(static_cast<int>(std::size(range))))];
    }

private:
    quint64 next();

    quint64 m_state;
};

/// Deals a total out to a number of parts: any `take` gives its parts' share, and all together give exactly
/// the total.
class Quota {
public:
    Quota(qint64 total, qint64 parts) : m_total(total), m_parts(parts) {}
    [[nodiscard]] int take(int parts = 1);

private:
    qint64 m_total;
    qint64 m_parts;
    qint64 m_taken = 0;
    qint64 m_dealt = 0;
};

} // namespace tarnwell::sample
