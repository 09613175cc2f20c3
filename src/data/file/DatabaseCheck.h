#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tarnwell {

/// One thing wrong, and where it stands.
struct Finding {
    QString table;
    qint64 key = 0;
    QString column;
    QString value; ///< As stored; "Null" where nothing is.

    /// "JobLotTask 4711: ParentKey is 12".
    [[nodiscard]] QString text() const;
};

/// What breaks one rule.
struct FindingGroup {
    QString rule; ///< In words, as what is wrong: "JobLotTask.StartDate is no date".
    qint64 count = 0;
    std::vector<Finding> first; ///< The first few by key.
};

struct CheckResult {
    QStringList engineProblems; ///< Damage; with any, the rows were not looked at.
    std::vector<FindingGroup> groups;

    [[nodiscard]] bool isClean() const { return engineProblems.isEmpty() && groups.empty(); }
    [[nodiscard]] qint64 count() const;
};

/// Examines a database in one state, also while others write, and changes nothing: the file's soundness, the
/// types and ranges of what is stored, relations and links, the rules of payments, and the task tree.
/// Raises DatabaseNotFound, and DatabaseForeign when the file is no database.
[[nodiscard]] CheckResult checkDatabase(const QString& path, int shownPerRule = 50);

} // namespace tarnwell
