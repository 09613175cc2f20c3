#include "runtime/modFormatFunctions.h"

#include <algorithm>

namespace tarnwell {

namespace {

/// Blanks only: tabs and line breaks are content.
QString trimBlanks(const QString& text) {
    const auto isBlank = [](QChar character) { return character == u' '; };
    const auto* first = std::find_if_not(text.cbegin(), text.cend(), isBlank);
    const auto last = std::find_if_not(text.crbegin(), std::make_reverse_iterator(first), isBlank).base();
    return QString(first, last - first);
}

bool isPlain(QChar character) {
    return character.unicode() >= 32 && character.unicode() < 127;
}

} // namespace

QString FieldText(const Value& value, int length, bool trim) {
    if (value.isNull())
        return {};
    QString text = value.toText();
    if (value.isNumber() && !text.contains(u'.'))
        return text.trimmed();
    if (length > 0)
        text.truncate(length);
    return trim ? trimBlanks(text) : text;
}

Value NullToZero(const Value& value) {
    return value.isNull() ? Value(0) : value;
}

QString StripCharacters(const QString& text, const QString& exclusion) {
    QString kept;
    kept.reserve(text.size());
    std::copy_if(text.cbegin(), text.cend(), std::back_inserter(kept), [&](QChar character) {
        return isPlain(character) && !exclusion.contains(character, Qt::CaseInsensitive);
    });
    return kept;
}

} // namespace tarnwell
