#pragma once

#include "data/Value.h"

#include <QStringView>

#include <string>
#include <vector>

namespace tarnwell::data {

/// What stands in a shape where a literal stood in the statement.
namespace mark {
inline constexpr char16_t Text = u'\x01';
inline constexpr char16_t Number = u'\x02';
inline constexpr char16_t Date = u'\x03';
inline constexpr char16_t Decimal = u'\x04'; ///< A number that a stored whole one cannot be.
} // namespace mark

/// Whether numbers are taken out of the shape. Inline, a statement that is used once stays small.
enum class Numbers { TakenOut, Inline };

/// Copies a statement into `shape` with its literals taken out, in one pass, and returns them in order:
/// texts, dates, whole and decimal numbers. 0 and 1 stay in the shape, being flags more often
/// than keys, and so does a number behind ORDER BY or GROUP BY, where it counts columns. Raises SyntaxError
/// for an open quote, bracket or date, for text between #...# that is not a date, for comments, and for
/// characters that have no meaning in the dialect.
[[nodiscard]] std::vector<Value> takeOutLiterals(QStringView sql, Numbers numbers, std::u16string& shape);

} // namespace tarnwell::data
