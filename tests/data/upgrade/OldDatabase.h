#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <vector>

namespace tarnwell::test {

/// The rows of a select in the engine's own words, as texts; Null as "NULL". Opens nothing of ours.
[[nodiscard]] std::vector<QStringList> plainRows(const QString& connectionString, const QByteArray& sql);
/// Everything that the engine keeps of a database's tables, columns, indexes, relations and triggers.
[[nodiscard]] QString schemaOf(const QString& connectionString);
/// All rows of all tables.
[[nodiscard]] QString allRows(const QString& connectionString);

/// A database as the first release made it, of the engine that the tests run on: version1-*.sql are its own
/// statements. It ends with this.
class OldDatabase {
public:
    enum class Holds { NewRows, Rows }; ///< What a new one holds, or also a few rows of everything.

    explicit OldDatabase(Holds holds);
    ~OldDatabase();
    OldDatabase(const OldDatabase&) = delete;
    OldDatabase& operator=(const OldDatabase&) = delete;

    [[nodiscard]] const QString& connectionString() const { return m_connectionString; }
    /// As tarnwell-db takes it.
    [[nodiscard]] QString address() const;
    [[nodiscard]] QString file(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    /// Has it say that a later version of the program brought it there.
    void makeNewer() const;

private:
    QTemporaryDir m_folder;
    QString m_connectionString;
};

} // namespace tarnwell::test
