#pragma once

#include "data/Value.h"
#include "data/odbc/OdbcConnection.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tarnwell::data {

class RowBlock;

/// Runs one call of the library and returns when it has ended. A watched call is run beside the questions of
/// its watch, which may end it through the second argument.
using OdbcRunner = std::function<int(const std::function<int()>& call, const std::function<void()>& cancel)>;

/// Whether a statement writes nothing; it may lock what it reads.
[[nodiscard]] inline bool onlyReads(const QByteArray& sql) {
    return qstrnicmp(sql.constData(), "SELECT", 6) == 0;
}

/// A prepared statement of one connection, which it keeps alive.
///
/// Every parameter travels as text, without a type: the server takes it for what stands beside it, a number
/// by a number's column and a text by a text's, as the embedded engine does by its affinities. So one
/// prepared statement serves a shape whatever the kinds of its values are.
class OdbcStatement {
public:
    /// Checks the statement on the server. Raises SyntaxError, NoSuchTable, NoSuchColumn, PermissionDenied.
    OdbcStatement(std::shared_ptr<OdbcConnection> connection, const QByteArray& sql);
    ~OdbcStatement();
    OdbcStatement(const OdbcStatement&) = delete;
    OdbcStatement& operator=(const OdbcStatement&) = delete;

    [[nodiscard]] OdbcHandle get() const { return m_handle; }
    [[nodiscard]] const std::shared_ptr<OdbcConnection>& connection() const { return m_connection; }
    [[nodiscard]] const QByteArray& sql() const { return m_sql; }

    /// Values for all parameters, in order. Empty is stored as Null.
    void bind(std::span<const Value> values);
    /// The values of another statement of the same text.
    void bindAs(const OdbcStatement& other);
    /// Runs it with the values bound last.
    void run(const OdbcRunner& runner);
    /// Rows that the run touched.
    [[nodiscard]] int touchedRows() const;
    /// The rows of a run, from before the first one. Lives as long as the statement.
    [[nodiscard]] RowBlock& rows();
    /// Lets go of what is left of a run.
    void reset() noexcept;
    /// Ends a run that another thread has begun. The statement must not be run again: where the run had ended
    /// by itself, the driver manager and the driver no longer agree on its state.
    void cancel() noexcept;
    [[nodiscard]] bool wasCancelled() const { return m_wasCancelled; }

    /// Raises what the driver reported last.
    [[noreturn]] void raiseLast() const;

private:
    struct Parameter {
        std::u16string text;
        std::ptrdiff_t bytes = 0; ///< Or the driver's mark for Null.
    };
    void bindParameter(std::size_t index);
    void check(int code) const;

    std::shared_ptr<OdbcConnection> m_connection;
    QByteArray m_sql;
    OdbcHandle m_handle = nullptr;
    std::vector<Parameter> m_parameters;
    std::unique_ptr<RowBlock> m_rows;
    bool m_wasCancelled = false;
};

} // namespace tarnwell::data
