#include "reports/drawing/KeyBatch.h"

#include <QStringList>

namespace tarnwell {

namespace {

constexpr int rowsOfBatch = 100;

} // namespace

KeyBatch::KeyBatch(const Recordset& rows, const QString& keyColumn)
    : m_rows(rows), m_keyColumn(rows.FieldIndex(keyColumn)) {}

bool KeyBatch::beginsBatch() {
    const int row = m_rows.AbsolutePosition();
    if (row < m_end)
        return false;
    m_begin = row;
    m_end = row + rowsOfBatch;
    return true;
}

QString KeyBatch::keys() const {
    QStringList keys;
    for (int row = m_begin; row < m_end && m_rows.hasRow(row); ++row)
        keys += QString::number(m_rows.valueAt(row, m_keyColumn).toLong());
    return '(' + keys.join(',') + ')';
}

} // namespace tarnwell
