#pragma once

#include "data/Value.h"
#include "data/schema/Quoted.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>
#include <memory>
#include <span>

struct sqlite3;
struct sqlite3_stmt;

namespace tarnwell::data {

/// One prepared statement of the engine's own language. Must not outlive its database.
class SqliteStatement {
public:
    /// Raises SyntaxError, NoSuchTable, NoSuchColumn, and PermissionDenied for what the connection refuses;
    /// SyntaxError also for text behind the first statement.
    SqliteStatement(sqlite3* handle, const QByteArray& sql);

    /// Parameters count from 1. Empty is stored as Null.
    void bind(int parameter, const Value& value);
    /// Binds the first parameters, in order.
    void bindAll(std::span<const Value> values);
    /// Bytes rather than text. They are not copied: they must stay until the statement was run.
    void bindBytes(int parameter, QByteArrayView bytes);
    /// True when it stands on a row, false at its end; there it has let go of its locks. Raises what the
    /// library reports, by `SqliteError.h`.
    bool step();
    /// Runs to its end, whatever it returns. Raises as `step`.
    void run();
    /// Lets go of locks and makes it ready to run again; what was bound stays.
    void reset() noexcept;
    [[nodiscard]] sqlite3_stmt* get() const { return m_statement.get(); }
    /// Columns of the row it stands on count from 0; Null reads as 0 and as "".
    [[nodiscard]] qint64 integerAt(int column) const;
    [[nodiscard]] QString textAt(int column) const;
    /// Valid until the statement goes on.
    [[nodiscard]] QByteArrayView bytesAt(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};

/// An open database file.
class SqliteDatabase {
public:
    enum class Access {
        ReadWrite,
        ReadOnly,  ///< Others may write meanwhile.
        Immutable, ///< Read without looking for a log or a lock: nobody may write.
        Create     ///< Makes the file where it is missing.
    };

    /// Does not look into the file yet: what is wrong with it shows at the first statement.
    SqliteDatabase(const QString& path, Access access);

    [[nodiscard]] sqlite3* get() const { return m_handle.get(); }
    [[nodiscard]] SqliteStatement prepare(const QByteArray& sql) const { return {m_handle.get(), sql}; }
    void run(const QByteArray& sql) const { prepare(sql).run(); }
    /// Statements that still exist keep the file open until they are destroyed.
    void close() noexcept { m_handle.reset(); }

    /// What the last failed statement found: a file that is damaged or no database at all, or one in use.
    [[nodiscard]] bool foundDamage() const;
    [[nodiscard]] bool foundBusy() const;

private:
    struct Closer {
        void operator()(sqlite3* handle) const noexcept;
    };
    std::unique_ptr<sqlite3, Closer> m_handle;
};

/// While it lives, the statements of a database ask again and again whether to go on, and raise Cancelled
/// once the answer is no. Must not outlive the database.
class SqliteWatch {
public:
    /// Empty: nobody is asked. `goesOn` must not throw.
    SqliteWatch(const SqliteDatabase& database, std::function<bool()> goesOn);
    ~SqliteWatch();
    SqliteWatch(const SqliteWatch&) = delete;
    SqliteWatch& operator=(const SqliteWatch&) = delete;

private:
    const SqliteDatabase& m_database;
    std::function<bool()> m_goesOn;
};

} // namespace tarnwell::data
