#pragma once

#include "data/sqlite/SqliteDatabase.h"

#include <functional>

namespace tarnwell {

/// The pages of a run while it is drawn, in parts, in a file of the engine's own that nobody else sees and
/// that is deleted with this.
class PageSpool {
public:
    /// A part of a page; parts count from 1 in the order in which they came.
    struct Part {
        qint64 number;
        qint64 page;
        QByteArrayView items; ///< Stays until the next part.
    };

    PageSpool();

    /// Raises DatabaseFailure, for a full disk above all; most of what came before is kept then.
    void add(qint64 page, QByteArrayView items);
    [[nodiscard]] qint64 count() const { return m_count; }
    /// Hands out the parts in order, until `take` says false. Whether it had all of them.
    [[nodiscard]] bool handOut(const std::function<bool(const Part& part)>& take) const;

private:
    data::SqliteDatabase m_handle;
    data::SqliteStatement m_add;
    qint64 m_count = 0;
};

} // namespace tarnwell
