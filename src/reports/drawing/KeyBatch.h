#pragma once

#include "data/recordset/Recordset.h"

#include <QString>

#include <algorithm>
#include <span>
#include <vector>

namespace tarnwell {

/// Gathers what belongs to a report's rows for many rows at once: a block is large enough to cost few
/// statements and small enough that neither the first page nor Cancel waits for it.
class KeyBatch {
public:
    /// `keyColumn` is the name of the key by which the rest is found.
    KeyBatch(const Recordset& rows, const QString& keyColumn);

    /// Whether the current row lies beyond the block; the block then begins anew at the current row.
    [[nodiscard]] bool beginsBatch();
    /// The block's keys as a list for IN: "(3,7,12)".
    [[nodiscard]] QString keys() const;

private:
    const Recordset& m_rows;
    int m_keyColumn;
    int m_begin = 0; // row numbers from 1; the end is the first row behind the block
    int m_end = 0;
};

/// The gathered rows of one key, of all rows in the order of their keys.
template <class Row>
[[nodiscard]] std::span<const Row> rowsOf(const std::vector<Row>& rows, qint64 key, qint64 Row::*keyOf) {
    return {std::ranges::lower_bound(rows, key, {}, keyOf), std::ranges::upper_bound(rows, key, {}, keyOf)};
}

} // namespace tarnwell
