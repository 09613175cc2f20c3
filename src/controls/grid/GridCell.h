#pragma once

#include "controls/grid/GridColumn.h"

#include <optional>
#include <unordered_map>

namespace tarnwell {

// A cell's value as text, and typed text as a value.

/// What a value list shows for a stored value, and the other way round. Keeps a pointer to the entries.
class ValueListIndex {
public:
    explicit ValueListIndex(const std::vector<ListEntry>& entries);

    /// Null when the value is not in the list.
    [[nodiscard]] const ListEntry* find(const Value& value) const;
    /// The entry of that text, without regard to case.
    [[nodiscard]] const ListEntry* findText(const QString& text) const;

private:
    const std::vector<ListEntry>* m_entries;
    std::unordered_map<qint64, std::size_t> m_byKey;
};

/// The text that a cell shows; "" for Null, for check boxes, and for a value that its list does not know.
[[nodiscard]] QString cellText(const GridColumn& column, const ValueListIndex& list, const Value& value);

/// The text that an editor starts with. Read back it gives the value again, to the minute for dates.
[[nodiscard]] QString editText(const GridColumn& column, const ValueListIndex& list, const Value& value);

/// How a check box shows a value: Null, Empty and 0 are off.
[[nodiscard]] bool isYes(const Value& value);

/// What typed text means in a column: a value, or why it is refused.
struct ParsedCell {
    Value value;
    QString refusal; ///< Empty when the text was taken.
};

/// A text over the column's limit is refused. Empty text is Null in number, date and key columns, "" in text
/// columns.
[[nodiscard]] ParsedCell parseCell(const GridColumn& column, const ValueListIndex& list, const QString& text);

} // namespace tarnwell
