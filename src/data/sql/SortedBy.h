#pragma once

#include "data/sql/SqlTokens.h"

#include <vector>

namespace tarnwell::data {

/// One element of an ORDER BY.
struct SortedBy {
    int begin;
    int end;    ///< Of what is sorted by; behind its last token.
    int next;   ///< Behind all of it, where a comma stands or the list ends.
    bool falls; ///< DESC.
};

/// The elements of the statement's own ORDER BY, in order; none where it has none.
[[nodiscard]] std::vector<SortedBy> sortedBy(const SqlTokens& tokens);

} // namespace tarnwell::data
