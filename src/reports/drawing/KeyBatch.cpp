#include "reports/drawing/KeyBatch.h"

#include <QStringList>

namespace tarnwell {

KeyBatch::KeyBatch(const Recordset& rows, const QString& keyColumn, int size)
    : m_rows(rows), m_keyColumn(rows.FieldIndex(keyColumn)), m_size(size) {}

bool KeyBatch::beginsBatch() {
    const int row = m_rows.AbsolutePosition();
    if (row < m_end)
        return false;
    m_begin = row;
    m_end = row + m_size;
    return true;
}

QString KeyBatch::keys() const {
    QStringList keys;
    for (int row = m_begin; row < m_end && m_rows.hasRow(row); ++row)
        keys += QString::number(m_rows.valueAt(row, m_keyColumn).toLong());
    return '(' + keys.join(',') + ')';
}

} // namespace tarnwell
