#pragma once

#include "data/recordset/Recordset.h"

#include <QString>

#include <algorithm>
#include <span>
#include <vector>

namespace tarnwell {

/// The keys of a report's next rows, so that what belongs to these rows is read for many of them at once. A
/// batch is large enough to cost few statements and small enough that neither the first page nor Cancel waits
/// for it.
class KeyBatch {
public:
    /// `rows` must outlive the batch; `keyColumn` is the name of one of its columns.
    KeyBatch(const Recordset& rows, const QString& keyColumn);

    /// Whether the current row is beyond the batch; the next batch then begins with the current row.
    [[nodiscard]] bool beginsBatch();
    /// The batch's keys as a list for IN: "(3,7,12)".
    [[nodiscard]] QString keys() const;

private:
    const Recordset& m_rows;
    int m_keyColumn;
    int m_begin = 0; // row numbers from 1; the end is the first row after the batch
    int m_end = 0;
};

/// The rows of one key. Requires: `rows` is sorted by `keyOf`. What is returned points into `rows`.
template <class Row>
[[nodiscard]] std::span<const Row> rowsOf(const std::vector<Row>& rows, qint64 key, qint64 Row::*keyOf) {
    return {std::ranges::lower_bound(rows, key, {}, keyOf), std::ranges::upper_bound(rows, key, {}, keyOf)};
}

} // namespace tarnwell
