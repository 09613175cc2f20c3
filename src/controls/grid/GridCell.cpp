#include "controls/grid/GridCell.h"

#include "data/RunTimeError.h"
#include "runtime/RunTime.h"

#include <algorithm>

namespace tarnwell {

namespace {

const QString minuteFormat = QStringLiteral("mm/dd/yy hh:mm");

QString dateText(const Value& value) {
    if (value.kind() != Value::Kind::Date)
        return value.isNull() ? QString() : value.toText();
    return Format(value, minuteFormat);
}

QString quoted(const QString& text) {
    constexpr int longest = 40;
    const QString shown = text.size() > longest ? text.left(longest) + QChar(0x2026) : text;
    return u'"' + shown + u'"';
}

std::optional<double> numberFromText(const QString& text) {
    try {
        return Value(text).toDouble();
    } catch (const RunTimeError&) {
        return std::nullopt; // not a number, or too large: the caller reports it
    }
}

/// One that marks no thousands may be meant for the decimals: "12,50" must not become 1250.
bool hasMisplacedComma(const QString& text) {
    const QStringList groups = text.section(u'.', 0, 0).split(u',');
    return text.section(u'.', 1).contains(u',') ||
           std::any_of(groups.begin() + 1, groups.end(),
                       [](const QString& group) { return group.size() != 3; });
}

ParsedCell parseNumber(const QString& text) {
    if (const std::optional<double> number = numberFromText(text); number && !hasMisplacedComma(text))
        return {.value = *number, .refusal = {}};
    return {.value = {}, .refusal = quoted(text) + QStringLiteral(" is not a number.")};
}

ParsedCell parseDate(const QString& text) {
    const DateTime moment = dateFromText(text);
    if (moment.isValid())
        return {.value = moment, .refusal = {}};
    return {.value = {},
            .refusal = quoted(text) + QStringLiteral(" is not a date. Enter it as mm/dd/yy hh:mm.")};
}

ParsedCell parseListed(const ValueListIndex& list, const QString& text) {
    if (const ListEntry* entry = list.findText(text))
        return {.value = entry->value, .refusal = {}};
    return {.value = {}, .refusal = quoted(text) + QStringLiteral(" is not in the list.")};
}

Value emptied(const GridColumn& column) {
    const bool keys = column.edit == ColumnEdit::ValueList && !column.valueList.empty() &&
                      column.valueList.front().value.isNumber();
    return column.format == ColumnFormat::General && !keys ? Value(QString()) : Value::null();
}

} // namespace

ValueListIndex::ValueListIndex(const std::vector<ListEntry>& entries) : m_entries(&entries) {
    m_byKey.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].value.kind() == Value::Kind::Long)
            m_byKey.emplace(entries[i].value.toLong(), i);
    }
}

const ListEntry* ValueListIndex::find(const Value& value) const {
    if (value.kind() == Value::Kind::Long && !m_byKey.empty()) {
        const auto found = m_byKey.find(value.toLong());
        return found != m_byKey.end() ? &(*m_entries)[found->second] : nullptr;
    }
    const auto found = std::find_if(m_entries->begin(), m_entries->end(), [&](const ListEntry& entry) {
        return entry.value.kind() == value.kind() && compareValues(entry.value, value) == 0;
    });
    return found != m_entries->end() ? &*found : nullptr;
}

const ListEntry* ValueListIndex::findText(const QString& text) const {
    const auto found = std::find_if(m_entries->begin(), m_entries->end(), [&](const ListEntry& entry) {
        return entry.text.compare(text, Qt::CaseInsensitive) == 0;
    });
    return found != m_entries->end() ? &*found : nullptr;
}

QString cellText(const GridColumn& column, const ValueListIndex& list, const Value& value) {
    if (value.isEmpty() || value.isNull() || showsCheckBox(column) || column.edit == ColumnEdit::ButtonOnly)
        return {};
    if (column.edit == ColumnEdit::ValueList) {
        const ListEntry* entry = list.find(value);
        return entry != nullptr ? entry->text : QString();
    }
    switch (column.format) {
    case ColumnFormat::Fixed:
        return Format(value, QStringLiteral("Fixed"));
    case ColumnFormat::GeneralDate:
        return dateText(value);
    default:
        return value.toText();
    }
}

QString editText(const GridColumn& column, const ValueListIndex& list, const Value& value) {
    QString shown = cellText(column, list, value);
    if (column.edit == ColumnEdit::ValueList || shown.isEmpty())
        return shown;
    if (column.format == ColumnFormat::Fixed && value.isNumber() && shown.toDouble() != value.toDouble())
        return value.toText();
    // A century that two digits would not give back is spelled out.
    if (column.format == ColumnFormat::GeneralDate && value.kind() == Value::Kind::Date &&
        dateFromText(shown).date != value.toDate().date)
        return value.toText();
    return shown;
}

bool isYes(const Value& value) {
    return value.isNumber() && value.toDouble() != 0;
}

ParsedCell parseCell(const GridColumn& column, const ValueListIndex& list, const QString& text) {
    if (column.edit == ColumnEdit::ValueList)
        return text.isEmpty() && list.findText(text) == nullptr ? ParsedCell{emptied(column), {}}
                                                                : parseListed(list, text);
    if (column.maxLength > 0 && text.size() > column.maxLength)
        return {.value = {},
                .refusal =
                    quoted(text) + QStringLiteral(" is longer than %1 characters.").arg(column.maxLength)};
    const QString trimmed = text.trimmed();
    if (column.format == ColumnFormat::General)
        return {.value = text, .refusal = {}};
    if (trimmed.isEmpty())
        return {.value = emptied(column), .refusal = {}};
    return column.format == ColumnFormat::GeneralDate ? parseDate(trimmed) : parseNumber(trimmed);
}

} // namespace tarnwell
