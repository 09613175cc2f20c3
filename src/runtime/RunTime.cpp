#include "runtime/RunTime.h"

#include "data/Decimal.h"
#include "data/RunTimeError.h"

#include <QStringView>
#include <QVarLengthArray>

#include <cmath>

namespace tarnwell {

namespace {

/// Collects the characters of the number that a text begins with; blanks are skipped wherever they are.
class NumberReader {
public:
    explicit NumberReader(QStringView text) : m_text(text) {}

    [[nodiscard]] QStringView read() {
        readSign();
        bool hasDigits = readDigits();
        if (next() == u'.') {
            take(u'.');
            hasDigits = readDigits() || hasDigits;
        }
        if (!hasDigits)
            return {};
        readExponent();
        return m_number;
    }

private:
    [[nodiscard]] char16_t next() {
        while (m_at < m_text.size() && isBlank(m_text[m_at].unicode()))
            ++m_at;
        return m_at < m_text.size() ? m_text[m_at].unicode() : u'\0';
    }
    [[nodiscard]] static bool isBlank(char16_t code) {
        return code == u' ' || code == u'\t' || code == u'\n' || code == u'\r';
    }
    void take(char16_t character) {
        m_number.append(character);
        ++m_at;
    }
    bool readSign() {
        const char16_t sign = next();
        if (sign != u'-' && sign != u'+')
            return false;
        take(sign);
        return true;
    }
    bool readDigits() {
        const qsizetype before = m_number.size();
        for (char16_t digit = next(); digit >= u'0' && digit <= u'9'; digit = next())
            take(digit);
        return m_number.size() > before;
    }
    void readExponent() {
        const qsizetype mantissa = m_number.size();
        const char16_t letter = next();
        if (letter != u'E' && letter != u'e' && letter != u'D' && letter != u'd')
            return;
        take(u'e');
        readSign();
        if (!readDigits())
            m_number.resize(mantissa); // "12 each" is 12
    }

    QStringView m_text;
    qsizetype m_at = 0;
    QVarLengthArray<char16_t, 64> m_number;
};

} // namespace

double Val(const QString& text) {
    NumberReader reader(text);
    const QStringView digits = reader.read();
    if (digits.isEmpty())
        return 0;
    // Too small a number comes back as 0, too big a one as infinity; neither depends on the locale.
    const double number = digits.toDouble();
    if (std::isinf(number))
        raise(Failure::Overflow);
    return number;
}

QString Str(double number) {
    QString text = numberText(number);
    const qsizetype first = text.startsWith(u'-') ? 1 : 0;
    if (QStringView(text).sliced(first).startsWith(u"0."))
        text.remove(first, 1);
    return first == 1 ? text : u' ' + text;
}

double Round(double number, int decimals) {
    if (decimals < 0)
        raise(Failure::InvalidProcedureCall);
    if (!std::isfinite(number))
        return number;
    Decimal decimal(number);
    return decimal.round(decimals, HalfRule::ToEven) ? decimal.toDouble() : number;
}

} // namespace tarnwell
