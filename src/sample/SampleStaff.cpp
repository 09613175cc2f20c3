#include "sample/SampleStaff.h"

#include "sample/SampleWords.h"

namespace tarnwell::sample {

namespace {

/// Numbers that no office has ever issued: areas 000 and 900 to 999 with groups below 50. Distinct for every
/// index below 40,000.
QString socialSecurityNumber(int index) {
    const int serial = index * 7919 % 9999 + 1;
    const int group = 1 + (serial + index / 9999 * 13) % 49;
    const int area = index % 11 == 4 ? 0 : 900 + index % 100;
    return QStringLiteral("%1-%2-%3")
        .arg(area, 3, 10, QLatin1Char('0'))
        .arg(group, 2, 10, QLatin1Char('0'))
        .arg(serial, 4, 10, QLatin1Char('0'));
}

struct Person {
    QString last;
    QString first;

    [[nodiscard]] QString slashed() const { return last + QLatin1Char('/') + first; }
};

/// Every pair of names once before any pair comes again.
Person personAt(SampleRandom& random, int index) {
    const auto firsts = words::firstNames();
    const auto lasts = words::lastNames();
    // A stride that shares no factor with their number, or the first employees would all begin with A.
    const auto last = static_cast<std::size_t>(index) * 31 % lasts.size();
    const auto first = (static_cast<std::size_t>(index) / lasts.size() + last * 7 +
                        static_cast<std::size_t>(random.below(3))) %
                       firsts.size();
    return {QString::fromUtf8(lasts[last]), QString::fromUtf8(firsts[first])};
}

QDate hireDate(SampleRandom& random, const Scale& scale, int index) {
    const QDate opening = baseDate.addMonths(-scale.months);
    // Foremen and two thirds of the others were there before the first job; the rest came later.
    if (index < scale.foremen || index % 3 != 2)
        return opening.addDays(-random.between(30, 900));
    return opening.addDays(random.below(scale.months * 28));
}

struct Role {
    bool foreman;
    bool inactive;
};

/// The last few have left, one foreman among them.
Role roleAt(const Scale& scale, int index) {
    return {.foreman = index < scale.foremen || index == scale.employees - 1,
            .inactive = index >= scale.employees - scale.inactive};
}

/// The types of a new database other than the foremen's.
std::vector<QString> ordinaryTypes(Connection& connection) {
    std::vector<QString> types;
    Recordset rows;
    rows.Open(
        QStringLiteral("SELECT Description FROM Code WHERE Deleted=0 AND Code1=1 AND Description<>'Foreman' "
                       "ORDER BY Description"),
        connection);
    for (; !rows.atEnd(); rows.MoveNext())
        types.push_back(rows.field(0).toText());
    if (types.empty())
        types.push_back(QStringLiteral("Foreman"));
    return types;
}

Value optionalDate(QDate day) {
    return day.isValid() ? Value(DateTime{day}) : Value::null();
}

Worker writeEmployee(SampleTables& tables, SampleRandom& random, const Scale& scale, int index,
                     const Person& person, const QString& type, const QString& foreman) {
    const Role role = roleAt(scale, index);
    Worker worker{.hired = hireDate(random, scale, index), .left = {}};
    if (role.inactive)
        worker.left = baseDate.addDays(-random.between(20, scale.months * 10));
    if (worker.left.isValid() && worker.left < worker.hired)
        worker.hired = worker.left.addMonths(-14);
    static constexpr const char* marital[] = {"M", "S", "MS", "M"};
    const Value note = index % 4 == 1   ? Value(QString::fromLatin1(random.pick(words::employeeNotes())))
                       : index % 4 == 2 ? Value("")
                                        : Value::null();
    worker.key = tables.employee.add(
        {socialSecurityNumber(index), person.last, person.first, type, foreman, marital[index % 4],
         QStringLiteral("%1 %2")
             .arg(random.between(10, 4999))
             .arg(QLatin1String(random.pick(words::streets()))),
         index % 6 == 5 ? Value(QStringLiteral("Apt %1").arg(random.between(1, 40))) : Value::null(),
         QString::fromLatin1(random.pick(words::cities())), "TX",
         QStringLiteral("7%1").arg(random.between(5000, 9998)),
         index % 9 == 8 ? Value("")
                        : Value(QStringLiteral("(%1) 555-01%2")
                                    .arg(random.between(200, 989))
                                    .arg(random.below(100), 2, 10, QLatin1Char('0'))),
         index % 7 == 6 ? Value::null() : Value(random.below(5)), note,
         index % 13 == 12 ? Value::null() : Value(DateTime{worker.hired}), optionalDate(worker.left),
         role.inactive});
    return worker;
}

} // namespace

qint64 Staff::workerFor(SampleRandom& random, int trade, QDate day, qint64 other) const {
    const auto& crew = m_crews[static_cast<std::size_t>(trade) % m_crews.size()];
    const auto start = static_cast<std::size_t>(random.below(static_cast<int>(crew.size())));
    for (std::size_t i = 0; i < crew.size(); ++i) {
        const Worker& worker = crew[(start + i) % crew.size()];
        if (worker.key != other && worker.worksOn(day))
            return worker.key;
    }
    return crew[start].key;
}

Staff writeStaff(SampleTables& tables, SampleRandom& random, const Scale& scale, int trades) {
    Staff staff(trades);
    const std::vector<QString> types = ordinaryTypes(tables.connection());
    for (int i = 0; i < scale.employees; ++i) {
        const Person person = personAt(random, i);
        const bool foreman = roleAt(scale, i).foreman;
        if (foreman)
            staff.appoint(person.slashed());
        const bool has = i >= scale.foremen && i % 10 != 9;
        const QString boss = has ? random.pick(staff.foremen()) : QString();
        const QString type =
            foreman ? QStringLiteral("Foreman") : types[static_cast<std::size_t>(i) % types.size()];
        const Worker worker = writeEmployee(tables, random, scale, i, person, type, boss);
        // Everybody knows three trades, so that no trade hangs on one person.
        for (int known = 0; known < 3; ++known)
            staff.hire((i + known * 5) % trades, worker);
    }
    return staff;
}

} // namespace tarnwell::sample
