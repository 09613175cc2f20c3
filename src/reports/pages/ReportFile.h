#pragma once

#include "data/RunTimeError.h"
#include "data/sqlite/OpenDatabase.h"
#include "data/sqlite/SqliteDatabase.h"

#include <QString>

#include <optional>

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

/// Raises for an error that says the file is damaged or no database, and returns for every other one:
/// UnusableReportFile, or DatabaseForeign for the database that the settings name and for any other file with
/// one of its tables, which must never be set aside.
void raiseForDamage(const RunTimeError& error, const QString& path);

/// The report database as one of the programs that share it has it open.
struct ReportFile {
    data::SqliteDatabase pages;
    std::optional<data::SqliteDatabase> mark; ///< Shows others that it is in use, where `pages` does not.
};

/// Opens the report database for one of the programs that share it; makes the file where it is missing, and
/// clears it of what ended programs left there when nobody else has it open. Raises PathNotFound for a
/// missing folder, FileAccess for a file or folder that can't be written, UnusableReportFile, and
/// DatabaseForeign for a file that may hold the wages (see `raiseForDamage`).
/// The journal is the one that suits the drive unless it is given.
[[nodiscard]] ReportFile openReportFile(const QString& path);
[[nodiscard]] ReportFile openReportFile(const QString& path, data::Journal journal);

} // namespace tarnwell
