#pragma once

#include "data/RunTimeError.h"
#include "data/sqlite/SqliteHandle.h"

#include <QString>

namespace tarnwell {

/// A report database that is damaged, or a file in its place that is none. It only ever holds the pages of
/// reports on show, so it can be set aside and made anew.
class UnusableReportFile : public RunTimeError {
public:
    explicit UnusableReportFile(const QString& path);

    [[nodiscard]] const QString& path() const { return m_path; }
    /// A free name beside it: "Report-damaged.mdb".
    [[nodiscard]] const QString& nameAside() const { return m_nameAside; }
    /// Gives the file, and its logs, that name. Raises FileAccess.
    void setAside() const;

private:
    QString m_path;
    QString m_nameAside;
};

/// Whether the engine found the file damaged or no database.
[[nodiscard]] bool tellsOfDamage(const RunTimeError& error);

/// Opens the report database for one of the programs that share it; makes the file where it is missing, and
/// clears it of what ended programs left there when nobody else has it open. Raises PathNotFound for a
/// missing folder, FileAccess for a file or folder that can't be written, UnusableReportFile, and
/// DatabaseForeign for a database with the wages in it, which is never set aside.
[[nodiscard]] data::SqliteHandle openReportFile(const QString& path);

} // namespace tarnwell
