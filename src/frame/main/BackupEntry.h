#pragma once

#include "data/backup/BackupFiles.h"
#include "data/check/CheckResult.h"
#include "data/file/DatabaseFigures.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <thread>
#include <vector>

namespace tarnwell {

/// A line of the list of backups: the data at work, or a backup.
struct BackupEntry {
    BackupFile file;          ///< Of the data at work on a server: no path.
    bool isAtWork = false;    ///< The data that the program works on now.
    QString connectionString; ///< Of the data at work.
};

/// The data at work, then the backups in the folder, the latest first. No file is opened.
[[nodiscard]] std::vector<BackupEntry> listBackups();

/// "Daily", "By hand", "Before a restore": why there is the file. The file's path where its name does not
/// say.
[[nodiscard]] QString kindText(const BackupEntry& entry);
/// "11/25/26 17:43"; without the time where it is not known, and "Now" for the data at work.
[[nodiscard]] QString madeText(const BackupEntry& entry);
/// "2.1 MB"; empty for a catalog.
[[nodiscard]] QString sizeText(const BackupEntry& entry);
[[nodiscard]] QString paymentsText(const DatabaseFigures& figures);
/// "11/25/26"; "none".
[[nodiscard]] QString lastPaymentText(const DatabaseFigures& figures);

/// "2 backups, 4.1 MB"; empty where there are none.
[[nodiscard]] QString summaryText(const std::vector<BackupEntry>& entries);

/// What a check found, for a message: at most ten lines, and how many more there are.
[[nodiscard]] QString findingsText(const CheckResult& result);

/// What an entry holds, or why that can't be said.
struct EntryFigures {
    int entry = 0; ///< Its place in the list.
    std::optional<DatabaseFigures> figures;
    QString failure;
};

/// Reads what the entries hold, one after the other, on a thread of its own: counting the payments of a large
/// file takes a moment.
class FigureReader {
public:
    FigureReader() = default;
    ~FigureReader() { stop(); }
    FigureReader(const FigureReader&) = delete;
    FigureReader& operator=(const FigureReader&) = delete;

    /// Stops what it does and begins with these. `found` is called on the reader's thread.
    void read(std::vector<BackupEntry> entries, std::function<void(const EntryFigures&)> found);
    /// Returns once no file is open any more; nothing is found then.
    void stop();

private:
    std::jthread m_thread;
};

} // namespace tarnwell
