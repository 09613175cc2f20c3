#pragma once

#include "data/Value.h"

#include <QString>

namespace tarnwell {

/// A database value as text: Null and Empty are ""; a value of a number type with no "." in its text is its
/// number text, trimmed; anything else is its first `length` characters (all for 0), trimmed on both sides if
/// `trim`.
[[nodiscard]] QString FieldText(const Value& value, int length = 0, bool trim = false);

/// The value, or 0 for Null.
[[nodiscard]] Value NullToZero(const Value& value);

/// Drops characters below 32, from 127 up, and those of `exclusion` (letters in either case).
[[nodiscard]] QString StripCharacters(const QString& text, const QString& exclusion);

} // namespace tarnwell
