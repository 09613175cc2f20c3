#pragma once

#include "sample/SampleRandom.h"
#include "sample/SampleScale.h"
#include "sample/SampleTables.h"

#include <vector>

namespace tarnwell::sample {

/// An employee as far as payments and plans must know.
struct Worker {
    qint64 key = 0;
    QDate hired;
    QDate left; ///< Invalid while employed.

    [[nodiscard]] bool worksOn(QDate day) const { return hired <= day && (!left.isValid() || day <= left); }
};

/// The employees, and who of them does which trade.
class Staff {
public:
    explicit Staff(int trades) : m_crews(static_cast<std::size_t>(trades)) {}

    void hire(int trade, const Worker& worker) { m_crews[static_cast<std::size_t>(trade)].push_back(worker); }
    void appoint(const QString& foreman) { m_foremen.push_back(foreman); }

    /// Somebody of the trade who worked on that day; `other` is passed over unless nobody else is there.
    [[nodiscard]] qint64 workerFor(SampleRandom& random, int trade, QDate day, qint64 other = 0) const;
    /// Foremen as "Last/First".
    [[nodiscard]] const std::vector<QString>& foremen() const { return m_foremen; }

private:
    std::vector<std::vector<Worker>> m_crews;
    std::vector<QString> m_foremen;
};

[[nodiscard]] Staff writeStaff(SampleTables& tables, SampleRandom& random, const Scale& scale, int trades);

} // namespace tarnwell::sample
