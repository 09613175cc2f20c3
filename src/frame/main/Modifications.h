#pragma once

#include <span>

namespace tarnwell {

/// The history of the program's changes, a line each, as the About window lists it.
[[nodiscard]] std::span<const char* const> modifications();

} // namespace tarnwell
