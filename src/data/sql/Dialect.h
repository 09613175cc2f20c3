#pragma once

#include "data/Value.h"

#include <QString>
#include <QStringView>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace tarnwell::data {

class ResultColumns;
class SqlWriter;

/// What a statement is, as far as the connection must know.
enum class StatementKind { Select, Insert, Update, Delete };

/// A statement of the system's dialect in the engine's words. The literals of the text are parameters, so
/// that statements which differ by a key or a typed text share one shape.
struct TranslatedShape {
    std::u16string text;    ///< The shape itself, with marks where the literals stood.
    QByteArray sql;         ///< UTF-8, with ?1, ?2, ... or ? where the literals stood.
    QByteArray sqlWithKeys; ///< Select only: with the key of every table added at the end of its columns.
    /// The tables whose keys `sqlWithKeys` adds, in that order. Empty when the rows stand for no stored row
    /// (DISTINCT, aggregates, GROUP BY, UNION).
    std::vector<QString> keyTables;
    std::vector<int> patterns; ///< Literals, from 1, that stand behind LIKE.
    /// Which literal, from 1, each parameter stands for; empty where each literal is written once.
    std::vector<int> parameters;
    StatementKind kind = StatementKind::Select;
    bool isLimited = false; ///< By a LIMIT of its own.
    /// Where the sorting of `sqlWithKeys` begins, which one row can do without; at its end where it decides
    /// which rows there are.
    qsizetype sortingAt = 0;

    /// The columns that a select gives back; described at the first call, then shared by all its recordsets.
    /// `withKeys`: those of `sqlWithKeys`.
    [[nodiscard]] const std::shared_ptr<const ResultColumns>& columns(bool withKeys) const;

private:
    mutable std::array<std::shared_ptr<const ResultColumns>, 2> m_columns; ///< Without and with keys.
};

/// A shape with this statement's own literals, ready to bind.
struct Translation {
    std::shared_ptr<const TranslatedShape> shape;
    std::vector<Value> parameters;
};

/// Translates the system's dialect for an engine: #mm/dd/yy# dates, ISNULL(x) compared or alone, True and
/// False as -1 and 0, text joined by + with Null carried through, [bracketed names], a bare table name as its
/// rows. Rows that are equal by an ORDER BY come in the order of their tables' keys, and so do the rows of
/// one table without it. Works on tokens; raises SyntaxError for what cannot be one statement (an open quote,
/// a second statement, anything but SELECT, INSERT, UPDATE, DELETE). Shapes are cached: a text seen before
/// costs one scan for its literals.
class Dialect {
public:
    /// `writer`: of another engine than SQLite; it must outlive this.
    explicit Dialect(const SqlWriter* writer = nullptr);
    ~Dialect();
    /// Raises DataOverflow for a number beyond a double's range.
    [[nodiscard]] Translation translate(QStringView sql);

private:
    struct Cache;
    const SqlWriter* m_writer;
    std::unique_ptr<Cache> m_cache;
};

} // namespace tarnwell::data
