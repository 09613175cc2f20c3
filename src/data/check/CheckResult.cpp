#include "data/check/CheckResult.h"

namespace tarnwell {

QString Finding::text() const {
    return QStringLiteral("%1 %2: %3 is %4").arg(table, QString::number(key), column, value);
}

qint64 CheckResult::count() const {
    qint64 sum = engineProblems.size();
    for (const FindingGroup& group : groups)
        sum += group.count;
    return sum;
}

QString shownValue(const QString& stored) {
    constexpr int longest = 60;
    return stored.isNull() ? QStringLiteral("Null") : stored.left(longest);
}

} // namespace tarnwell
