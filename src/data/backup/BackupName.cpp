#include "data/backup/BackupName.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <functional>
#include <set>

namespace tarnwell {

namespace {

constexpr int keptDays = 7;
constexpr std::size_t keptWeeks = 4;

struct KindPrefix {
    BackupKind kind;
    const char* prefix;  ///< That names are made with.
    const char* pattern; ///< Of all prefixes that are read as this kind.
};

constexpr std::array prefixes{
    KindPrefix{BackupKind::Daily, "daily", "daily"},
    KindPrefix{BackupKind::ByHand, "manual", "manual"},
    KindPrefix{BackupKind::Before, "before-restore", "before-[a-z]+"},
};

const QString dayFormat = QStringLiteral("yyyy-MM-dd");
const QString timeFormat = QStringLiteral("HHmmss");

/// The Monday of a day's week.
QDate weekOf(QDate day) {
    return day.addDays(1 - day.dayOfWeek());
}

} // namespace

BackupName readBackupName(const QString& fileName) {
    for (const KindPrefix& known : prefixes) {
        const QRegularExpression pattern(
            QStringLiteral("^%1-(.+)-(\\d{4}-\\d\\d-\\d\\d)(?:-(\\d{6}))?(?:-\\d+)?\\.mdb$")
                .arg(QLatin1String(known.pattern)));
        const QRegularExpressionMatch match = pattern.match(fileName);
        if (const QDate day = QDate::fromString(match.captured(2), dayFormat); day.isValid())
            return {.kind = known.kind,
                    .label = match.captured(1),
                    .day = day,
                    .time = QTime::fromString(match.captured(3), timeFormat)};
    }
    return {};
}

QString dailyBackupName(const QString& label, QDate day) {
    return QStringLiteral("daily-%1-%2.mdb").arg(label, day.toString(dayFormat));
}

QString timedBackupName(BackupKind kind, const QString& label, const QDateTime& when) {
    const auto* const known = std::ranges::find(prefixes, kind, &KindPrefix::kind);
    return QStringLiteral("%1-%2-%3-%4.mdb")
        .arg(QLatin1String(known->prefix), label, when.date().toString(dayFormat),
             when.time().toString(timeFormat));
}

QString backupLabel(const QString& name) {
    QString label = name;
    for (QChar& letter : label)
        if (!letter.isLetterOrNumber() && letter != u'.' && letter != u'-')
            letter = u'_';
    return label.isEmpty() ? QStringLiteral("database") : label;
}

std::vector<QDate> daysToRemove(std::vector<QDate> days, QDate today) {
    std::erase_if(days, [&](QDate day) { return day > today; });
    std::ranges::sort(days, std::greater());
    const auto repeated = std::ranges::unique(days);
    days.erase(repeated.begin(), repeated.end());
    if (days.size() <= std::size_t{keptDays})
        return {};
    const QDate firstWeek = weekOf(days[keptDays - 1]);
    days.erase(days.begin(), days.begin() + keptDays);
    std::set<QDate> weeks;
    std::erase_if(days, [&](QDate day) {
        return weekOf(day) < firstWeek && weeks.size() < keptWeeks && weeks.insert(weekOf(day)).second;
    });
    return days;
}

} // namespace tarnwell
