#include "runtime/modGeneral.h"

#include "data/recordset/Recordset.h"
#include "runtime/modErrorRoutines.h"

#include <algorithm>
#include <array>

namespace tarnwell {

namespace {

/// One character for one, so that a text keeps its length.
QString upperCase(QString text) {
    std::transform(text.cbegin(), text.cend(), text.begin(),
                   [](QChar character) { return character.toUpper(); });
    return text;
}

/// Whether the first characters of `entry`, as many as `prefix` has, are at or behind it in upper case. Works
/// in place: it runs for every entry of a list at each key.
bool isAtOrBehind(QStringView entry, QStringView prefix) {
    const qsizetype length = std::min(entry.size(), prefix.size());
    for (qsizetype at = 0; at < length; ++at) {
        const QChar letter = entry[at].toUpper();
        if (letter != prefix[at])
            return letter > prefix[at];
    }
    return entry.size() >= prefix.size();
}

/// What was typed: the text in front of the caret, all of it when the caret is at 0; in upper case.
template <typename Field>
QString typedText(const Field& field) {
    const int caret = field.SelStart();
    const QString text = field.Text();
    return upperCase(caret > 0 ? text.left(caret) : text);
}

/// End and Home only move the caret. False for any other key.
template <typename Field>
bool movesCaret(Field& field, int keyCode) {
    if (keyCode == KeyCode::End)
        field.setSelStart(static_cast<int>(field.Text().size()));
    else if (keyCode == KeyCode::Home)
        field.setSelStart(0);
    else
        return false;
    return true;
}

/// Keys whose release ends a passage through the field, not an input.
bool isPassing(int keyCode) {
    constexpr std::array keys{KeyCode::Tab, KeyCode::Shift, KeyCode::Control, KeyCode::Alt};
    return std::find(keys.begin(), keys.end(), keyCode) != keys.end();
}

int firstAtOrBehind(const SearchableList& combo, const QString& prefix) {
    const int count = combo.ListCount();
    for (int index = 0; index < count; ++index)
        if (isAtOrBehind(combo.List(index), prefix))
            return index;
    return count - 1;
}

} // namespace

int ComboIncrementalSearch(SearchableList& combo, int keyCode, int /*shift*/, bool emptyCheck) {
    try {
        if (movesCaret(combo, keyCode) || isPassing(keyCode))
            return -1;
        if (emptyCheck && combo.Text().trimmed().isEmpty())
            return -1;
        const QString prefix = typedText(combo);
        const int index = firstAtOrBehind(combo, prefix);
        combo.setListIndex(index);
        combo.setSelStart(static_cast<int>(prefix.size()));
        return index;
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
        combo.setListIndex(0);
        combo.setSelStart(0);
        return 0;
    }
}

qint64 LookupKeyByTyping(TypedField& field, int keyCode, const QString& sql, Connection& connection) {
    try {
        if (movesCaret(field, keyCode))
            return 0;
        QString statement = sql;
        if (const qsizetype mark = sql.indexOf(u'#'); mark >= 0)
            statement.replace(mark, 1, typedText(field));
        return firstValue(connection, statement).value_or(Value()).toLong();
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
        return 0;
    }
}

QString PadRight(const QString& text, int width) {
    if (text.size() > width)
        raise(Failure::InvalidProcedureCall);
    return text.leftJustified(width);
}

void overlay(QString& line, int position, const QString& part, int width) {
    if (position < 1 || position > line.size())
        return;
    const qsizetype left = line.size() - position + 1;
    const qsizetype limit = width > 0 ? std::min<qsizetype>(width, left) : left;
    const qsizetype length = std::min(limit, part.size());
    line.replace(position - 1, length, QStringView(part).first(length).data(), length);
}

} // namespace tarnwell
