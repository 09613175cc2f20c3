#pragma once

#include "data/Value.h"

#include <QString>

#include <array>
#include <ostream>

// How a failed expectation shows our values; without these GoogleTest prints their bytes. The build includes
// this file ahead of every test, so that all parts of a test program print a type alike.

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace tarnwell {

/// "Null", "Long 12", "Text \"12\"": values of different kinds differ, so the kind is shown.
inline void PrintTo(const Value& value, std::ostream* out) {
    static constexpr std::array kinds{"Empty", "Null", "YesNo", "Long", "Double", "Date", "Text"};
    *out << kinds.at(static_cast<std::size_t>(value.kind()));
    if (value.isEmpty() || value.isNull())
        return;
    *out << ' ';
    if (value.kind() == Value::Kind::Text)
        PrintTo(value.toText(), out);
    else
        *out << value.toText().toStdString();
}

inline void PrintTo(const DateTime& moment, std::ostream* out) {
    if (moment.isValid())
        PrintTo(Value(moment), out);
    else
        *out << "no date";
}

} // namespace tarnwell
