#pragma once

#include "data/schema/SchemaVersion.h"

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
    /// Damage to a file, with the table and page where they are known, and what a catalog lacks: then the
    /// rows were not looked at. Also values that a column refuses and no group explains.
    QStringList engineProblems;
    std::vector<FindingGroup> groups;
    int schemaVersion = schema::currentVersion; ///< That the database says of its tables.

    [[nodiscard]] bool isClean() const { return engineProblems.isEmpty() && groups.empty(); }
    /// All that was found: the engine's problems, and every finding, listed or not.
    [[nodiscard]] qint64 count() const;
};

/// A finding's value: the text as stored, of Null a null one.
[[nodiscard]] QString shownValue(const QString& stored);

} // namespace tarnwell
