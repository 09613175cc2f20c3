#pragma once

#include <QString>

#include <functional>

class QAbstractItemView;

namespace tarnwell {

/// What the user of an empty list or grid can do, in one sentence, asked when it is painted; an empty text
/// says nothing.
using EmptyHint = std::function<QString()>;

/// Greys a view and writes the hint into its middle. For the paint event of a view without lines; without a
/// hint nothing is painted.
void paintEmptyHint(QAbstractItemView& view, const EmptyHint& hint);

} // namespace tarnwell
