#include "data/Decimal.h"
#include "data/RunTimeError.h"
#include "runtime/RunTime.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace tarnwell {

namespace {

// ---- numbers

/// "###0.00" taken apart. Literal text may stand on both sides.
struct NumberPattern {
    QStringView prefix;
    QStringView suffix;
    int wholeZeros = 0;   ///< Digits that stand before the point even when they are 0.
    int decimals = 0;     ///< Most digits behind the point.
    int decimalZeros = 0; ///< Digits that stand behind the point even when they are 0.
    bool hasPoint = false;
};

bool isPlaceholder(QChar character) {
    return character == u'#' || character == u'0' || character == u'.';
}

/// Every place between a zero and the point counts as a zero: "#0#" has two whole zeros, ".#0" two decimals.
NumberPattern readNumberPattern(QStringView format) {
    if (format.compare(u"Fixed", Qt::CaseInsensitive) == 0)
        format = u"0.00";
    const auto* first = std::find_if(format.begin(), format.end(), isPlaceholder);
    const auto* last = std::find_if_not(first, format.end(), isPlaceholder);
    NumberPattern pattern;
    pattern.prefix = {format.begin(), first};
    pattern.suffix = {last, format.end()};
    for (const auto* at = first; at != last; ++at) {
        if (*at == u'.') {
            pattern.hasPoint = true;
        } else if (pattern.hasPoint) {
            ++pattern.decimals;
            if (*at == u'0')
                pattern.decimalZeros = pattern.decimals;
        } else if (*at == u'0' || pattern.wholeZeros > 0) {
            ++pattern.wholeZeros;
        }
    }
    return pattern;
}

QString formatNumber(double number, QStringView format) {
    if (!std::isfinite(number))
        return numberText(number);
    const NumberPattern pattern = readNumberPattern(format);
    Decimal decimal(number);
    decimal.round(pattern.decimals, HalfRule::AwayFromZero);

    const int whole = std::max({decimal.wholeDigits(), pattern.wholeZeros, 0});
    int decimals = pattern.decimals;
    while (decimals > pattern.decimalZeros && decimal.digitAt(decimals - 1) == '0')
        --decimals;

    QString text;
    text.reserve(pattern.prefix.size() + whole + decimals + 2 + pattern.suffix.size());
    if (decimal.isNegative())
        text += u'-';
    text += pattern.prefix;
    decimal.appendPlaces(text, -whole, decimals);
    if (pattern.hasPoint && decimals == 0)
        text += u'.';
    text += pattern.suffix;
    return text;
}

// ---- dates

void appendNumber(QString& text, int number, int width) {
    std::array<QChar, 4> digits;
    for (int at = width - 1; at >= 0; --at, number /= 10)
        digits[static_cast<std::size_t>(at)] = QChar(u'0' + number % 10);
    text.append(digits.data(), width);
}

/// One part of a date format and what it shows.
struct DatePart {
    QStringView letters;
    int width;
    int (*number)(const DateTime& moment);
};

constexpr std::array<DatePart, 6> dateParts{{
    {u"yyyy", 4, [](const DateTime& moment) { return moment.date.year(); }},
    {u"yy", 2, [](const DateTime& moment) { return moment.date.year() % 100; }},
    {u"mm", 2, [](const DateTime& moment) { return moment.date.month(); }},
    {u"dd", 2, [](const DateTime& moment) { return moment.date.day(); }},
    {u"hh", 2, [](const DateTime& moment) { return moment.time.hour(); }},
    {u"ss", 2, [](const DateTime& moment) { return moment.time.second(); }},
}};

const DatePart* datePartAt(QStringView format) {
    const auto* found = std::find_if(dateParts.begin(), dateParts.end(), [&](const DatePart& part) {
        return format.startsWith(part.letters, Qt::CaseInsensitive);
    });
    return found == dateParts.end() ? nullptr : found;
}

QString formatDate(const DateTime& moment, QStringView format) {
    QString text;
    text.reserve(format.size());
    bool afterHour = false;
    for (qsizetype at = 0; at < format.size();) {
        const DatePart* part = datePartAt(format.sliced(at));
        if (part == nullptr) {
            text += format[at++];
            continue;
        }
        const bool isMinute = afterHour && part->letters == u"mm";
        appendNumber(text, isMinute ? moment.time.minute() : part->number(moment), part->width);
        afterHour = part->letters == u"hh";
        at += part->letters.size();
    }
    return text;
}

bool isDateFormat(QStringView format) {
    for (qsizetype at = 0; at < format.size(); ++at)
        if (datePartAt(format.sliced(at)) != nullptr)
            return true;
    return false;
}

// ---- values

/// Nothing for text that is not a number.
std::optional<double> numberOf(const Value& value) {
    try {
        return value.toDouble();
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

/// Nothing for text that is not a date.
std::optional<DateTime> momentOf(const Value& value) {
    if (value.kind() != Value::Kind::Text)
        return value.toDate();
    const DateTime moment = dateFromText(value.toText());
    return moment.isValid() ? std::optional(moment) : std::nullopt;
}

} // namespace

QString Format(const Value& value, const QString& format) {
    if (value.isNull() || value.isEmpty())
        return {};
    if (isDateFormat(format)) {
        const std::optional<DateTime> moment = momentOf(value);
        return moment ? formatDate(*moment, format) : value.toText();
    }
    const std::optional<double> number = numberOf(value);
    return number ? formatNumber(*number, format) : value.toText();
}

} // namespace tarnwell
