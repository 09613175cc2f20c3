#pragma once

#include "data/Value.h"

#include <QString>

#include <functional>

namespace tarnwell {

// The run time's rules for numbers and dates. (`dateFromText` and `numberText` are in data/Value.h.)

/// The numeric prefix of a text as a double: blanks skipped, a sign, digits, one point, an exponent; 0 when
/// there are no digits. Raises Overflow (6) for a number beyond a double's range, and nothing else.
[[nodiscard]] double Val(const QString& text);

/// A number as text, with a leading blank where a negative number has its sign: " 12", "-12", " .5".
[[nodiscard]] QString Str(double number);

/// `format` is one of the number formats ("###0.00", "#0.00", "#####.#0", "#.#0", "#0", "Fixed") or made of
/// mm dd yy yyyy hh ss and separators. Null and Empty format to "". Halves round away from zero on the
/// decimal text.
/// "#" before the point prints nothing for 0, so "#.#0" of 0 is ".00". Text that is a number or date is
/// formatted as one; other text is returned unchanged. "mm" behind "hh" means minutes. Raises Overflow (6)
/// for a number too large to be a date where `format` is one of dates.
[[nodiscard]] QString Format(const Value& value, const QString& format);

/// Rounded to `decimals` places; halves go to the even digit, on the number's 15 significant digits. Raises
/// InvalidProcedureCall (5) for negative `decimals`.
[[nodiscard]] double Round(double number, int decimals);

/// True for a date value and for text that `dateFromText` takes.
[[nodiscard]] bool IsDate(const Value& value);
/// Raises TypeMismatch (13) when the value is not a date, InvalidUseOfNull (94) for Null.
[[nodiscard]] DateTime CDate(const Value& value);

// The clock, behind a seam that tests replace.
[[nodiscard]] DateTime Now();
[[nodiscard]] DateTime Today();
using Clock = std::function<DateTime()>;
/// Null restores the machine's clock. Returns the clock before.
Clock setClock(Clock clock);

} // namespace tarnwell
