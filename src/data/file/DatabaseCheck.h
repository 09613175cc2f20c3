#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tarnwell {

/// One wrong value, and where it is.
struct Finding {
    QString table;
    qint64 key = 0;
    QString column;
    QString value; ///< As stored, cut to 60 characters; "Null" for Null.

    /// "JobLotTask 4711: ParentKey is 12".
    [[nodiscard]] QString text() const;
};

/// The rows that break one rule.
struct FindingGroup {
    QString table;
    QString rule; ///< What is wrong, in words: "JobLotTask.StartDate is not a date".
    qint64 count = 0;
    std::vector<Finding> first; ///< The first few, in the order of their keys.
};

struct CheckResult {
    /// Damage, with the table and page where they are known: then the rows were not looked at. Also values
    /// that a column refuses and no group explains.
    QStringList engineProblems;
    std::vector<FindingGroup> groups;

    [[nodiscard]] bool isClean() const { return engineProblems.isEmpty() && groups.empty(); }
    /// All that was found: the engine's problems, and every finding, listed or not.
    [[nodiscard]] qint64 count() const;
};

/// Examines a database in one state, also while others write, and changes nothing: the file's soundness, the
/// types and ranges of what is stored, relations and links, the rules of payments, and the task tree.
/// At most `shownPerRule` findings a rule are listed; all are counted. Raises DatabaseNotFound, and
/// DatabaseForeign when the file is not a database or its list of tables can't be read.
[[nodiscard]] CheckResult checkDatabase(const QString& path, int shownPerRule = 50);

} // namespace tarnwell
