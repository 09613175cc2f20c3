#pragma once

#include "data/Value.h"
#include "data/schema/Schema.h"

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace tarnwell::data {

/// What a statement is, as far as the connection must know.
enum class StatementKind { Select, Insert, Update, Delete };

/// A statement of the system's dialect in the engine's words. The literals of the text are parameters, so
/// that statements which differ by a key or a typed text share one shape.
struct TranslatedShape {
    QByteArray sql;         ///< UTF-8, with ?1, ?2, ... where the literals stood.
    QByteArray sqlWithKeys; ///< Select only: with the key of every table added at the end of its columns.
    /// The tables whose keys `sqlWithKeys` adds, in that order. Empty when the rows stand for no stored row
    /// (DISTINCT, aggregates, GROUP BY, UNION).
    std::vector<QString> keyTables;
    std::vector<std::pair<QString, QString>> tables; ///< Alias (or name) and table of the FROM part.
    /// Position and type of the columns MIN(x) and MAX(x), whose type the engine does not tell.
    std::vector<std::pair<int, schema::ColumnType>> computedTypes;
    std::vector<int> patterns; ///< Parameters, from 1, that stand behind LIKE.
    StatementKind kind = StatementKind::Select;
};

/// A shape with this statement's own literals, ready to bind.
struct Translation {
    std::shared_ptr<const TranslatedShape> shape;
    std::vector<Value> parameters;
};

/// Translates the system's dialect for SQLite: #mm/dd/yy# dates, ISNULL(x) compared or alone, True and False
/// as -1 and 0, text joined by + with Null carried through, [bracketed names], a bare table name as its
/// rows. Works on tokens; raises SyntaxError for what cannot be one statement (an open quote, a second
/// statement, anything but SELECT, INSERT, UPDATE, DELETE). Shapes are cached: a text seen before costs one
/// scan for its literals.
class Dialect {
public:
    Dialect();
    ~Dialect();
    /// Raises DataOverflow for a number beyond a double's range.
    [[nodiscard]] Translation translate(QStringView sql);

private:
    struct Cache;
    std::unique_ptr<Cache> m_cache;
};

} // namespace tarnwell::data
