#pragma once

#include "builders/TaskPicking.h"

#include <vector>

namespace tarnwell {

class ListBox;

/// Fills a list of many choices; its first line is the current one, and none is selected.
void offerLines(ListBox& list, const std::vector<ListItem>& lines);

/// Select All/None: the lines that it reaches, see `isReachedBySelectAll`. Others keep their selection.
void selectAllLines(ListBox& list, bool select);

/// The selected lines from top to bottom.
[[nodiscard]] std::vector<ListItem> pickedLines(const ListBox& list);

} // namespace tarnwell
