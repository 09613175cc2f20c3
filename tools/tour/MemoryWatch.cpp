#include "tour/MemoryWatch.h"

#include <QFile>

#ifdef __GLIBC__
#include <malloc.h>
#include <unistd.h>
#endif

namespace tarnwell::tour {

namespace {

constexpr double kilobyte = 1024;

struct Memory {
    double resident = 0; ///< In kilobytes.
    double heap = 0;
};

Memory inUse() {
#ifdef __GLIBC__
    QFile file(QStringLiteral("/proc/self/statm"));
    const double pages = file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toDouble() : 0;
    const auto heap = mallinfo2();
    return {.resident = pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / kilobyte,
            .heap = static_cast<double>(heap.uordblks + heap.hblkhd) / kilobyte};
#else
    return {};
#endif
}

} // namespace

QString MemoryWatch::note(int round) {
    const Memory memory = inUse();
    m_heap.push_back(memory.heap);
    return QStringLiteral("round %1: %2 kB resident, %3 kB of heap in use")
        .arg(round)
        .arg(memory.resident, 0, 'f', 0)
        .arg(memory.heap, 0, 'f', 0);
}

double MemoryWatch::growthPerRound() const {
    const std::size_t half = m_heap.size() / 2;
    return half < 2 ? 0 : (m_heap.back() - m_heap[half]) / static_cast<double>(m_heap.size() - 1 - half);
}

} // namespace tarnwell::tour
