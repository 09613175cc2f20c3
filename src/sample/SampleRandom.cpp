#include "sample/SampleRandom.h"

namespace tarnwell::sample {

// SplitMix64: one addition and two multiplications, and every seed is a good one.
quint64 SampleRandom::next() {
    m_state += 0x9E3779B97F4A7C15ULL;
    quint64 mixed = m_state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
    return mixed ^ (mixed >> 31);
}

int SampleRandom::below(int bound) {
    // The upper half times the bound: even enough for bounds this small, and exact on every machine.
    return static_cast<int>(((next() >> 32) * static_cast<quint64>(bound)) >> 32);
}

int Quota::take(int parts) {
    if (m_parts == 0)
        return 0;
    m_taken += parts;
    const qint64 due = m_total * m_taken / m_parts;
    const qint64 share = due - m_dealt;
    m_dealt = due;
    return static_cast<int>(share);
}

} // namespace tarnwell::sample
