#pragma once

#include "data/recordset/Connection.h"

#include <QString>

#include <span>
#include <vector>

namespace tarnwell {

/// What the search dialog looks for.
namespace SearchType {
inline constexpr int Employee = 1, Builder = 2, Job = 3;
}

/// A piece of a result row: columns from `start` (1 is the first), at most `width` of them, the bar in front
/// of every piece but the first included.
struct SearchRowPart {
    const char* field;
    int start;
    int width;
};

/// One way to search: the text of its button, the column compared and sorted by, and how a row is laid out.
struct SearchOption {
    const char* caption;
    const char* tag;
    std::span<const SearchRowPart> row;
    bool openJobs = true; ///< Jobs only: open ones, or closed ones.
};

struct SearchKind {
    int searchType;
    const char* caption;
    std::span<const SearchOption> options; ///< At most 6.
};

/// Null for an unknown type.
[[nodiscard]] const SearchKind* searchKind(int searchType);

/// A row of 80 characters and the key string of its record: the character of the search type's code, then the
/// key's digits, then blanks, 21 characters in all.
struct FoundRow {
    QString text;
    QString key;
};

inline constexpr int foundRowLimit = 300;

/// The first rows, at most `foundRowLimit`, at or after `text` in the option's column. A quote in the text
/// breaks the statement: raises what the connection raises.
[[nodiscard]] std::vector<FoundRow> searchRows(Connection& connection, const SearchKind& kind, int option,
                                               const QString& text);

/// The record's key behind a key string; 0 for an empty one.
[[nodiscard]] qint64 selectedKeyNumber(const QString& selectedKey);

} // namespace tarnwell
