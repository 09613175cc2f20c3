#include "data/Decimal.h"

#include <algorithm>
#include <charconv>

namespace tarnwell {

Decimal::Decimal(double number) {
    // "-d.dddddddddddddde-308"
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::scientific, precision - 1)
                         .ptr;
    const char* at = text.data();
    m_negative = *at == '-';
    if (m_negative)
        ++at;
    m_digits[0] = *at;
    std::copy_n(at + 2, precision - 1, m_digits.begin() + 1);
    m_count = precision;
    const char* exponent = std::find(at, static_cast<const char*>(end), 'e') + 1;
    if (*exponent == '+')
        ++exponent;
    std::from_chars(exponent, end, m_point);
    ++m_point;
    dropTrailingZeros();
}

char Decimal::digitAt(int place) const {
    const int index = m_point + place;
    return index >= 0 && index < m_count ? m_digits[static_cast<std::size_t>(index)] : '0';
}

void Decimal::appendPlaces(QString& text, int first, int end) const {
    for (int place = first; place < end; ++place) {
        if (place == 0)
            text += u'.';
        text += QLatin1Char(digitAt(place));
    }
}

bool Decimal::round(int decimals, HalfRule rule) {
    const int keep = m_point + decimals;
    if (keep >= m_count)
        return false;
    if (keep < 0) {
        m_count = 0;
        dropTrailingZeros();
        return true;
    }
    const char next = m_digits[static_cast<std::size_t>(keep)];
    const bool isHalf = next == '5' && keep + 1 == m_count;
    const char last = keep > 0 ? m_digits[static_cast<std::size_t>(keep) - 1] : '0';
    const bool lastIsEven = (last - '0') % 2 == 0;
    cutTo(keep, next >= '5' && !(isHalf && rule == HalfRule::ToEven && lastIsEven));
    return true;
}

void Decimal::cutTo(int count, bool up) {
    m_count = count;
    while (up && m_count > 0 && m_digits[static_cast<std::size_t>(m_count) - 1] == '9')
        --m_count;
    if (up && m_count > 0) {
        ++m_digits[static_cast<std::size_t>(m_count) - 1];
    } else if (up) { // 9.99 became 10
        m_digits[0] = '1';
        m_count = 1;
        ++m_point;
    }
    dropTrailingZeros();
}

void Decimal::dropTrailingZeros() {
    while (m_count > 0 && m_digits[static_cast<std::size_t>(m_count) - 1] == '0')
        --m_count;
    if (m_count == 0) {
        m_point = 0;
        m_negative = false;
    }
}

double Decimal::toDouble() const {
    if (isZero())
        return 0;
    std::array<char, 32> text{};
    char* at = text.data();
    if (m_negative)
        *at++ = '-';
    at = std::copy_n(m_digits.begin(), m_count, at);
    *at++ = 'e';
    at = std::to_chars(at, text.data() + text.size(), m_point - m_count).ptr;
    double number = 0;
    std::from_chars(text.data(), at, number);
    return number;
}

} // namespace tarnwell
