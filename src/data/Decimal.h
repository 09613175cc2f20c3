#pragma once

#include <QString>

#include <array>

namespace tarnwell {

/// Where a number that lies exactly between two others is rounded to.
enum class HalfRule { AwayFromZero, ToEven };

/// A number as its decimal digits: 15 significant ones and the place of the point. Rounding works on these
/// digits, so that 2.345 is a half although no double is exactly 2.345.
class Decimal {
public:
    static constexpr int precision = 15; ///< Significant digits.

    /// Requires: `number` is finite.
    explicit Decimal(double number);

    [[nodiscard]] bool isNegative() const { return m_negative; }
    [[nodiscard]] bool isZero() const { return m_count == 0; }
    /// Digits before the point; 0 or less when the number is below 1.
    [[nodiscard]] int wholeDigits() const { return m_point; }
    /// The place behind the last digit that is not 0; 0 or less for a whole number.
    [[nodiscard]] int endPlace() const { return m_count - m_point; }
    /// The digit at a place: 0 is the first behind the point, -1 the last before it. '0' outside.
    [[nodiscard]] char digitAt(int place) const;

    /// Appends the digits from place `first` up to but without `end`, and the point in front of place 0.
    void appendPlaces(QString& text, int first, int end) const;

    /// Keeps `decimals` digits behind the point; a negative number also drops digits in front of it. False
    /// when there were no more than that.
    bool round(int decimals, HalfRule rule);
    /// The double nearest to the digits.
    [[nodiscard]] double toDouble() const;

private:
    void cutTo(int count, bool up);
    void dropTrailingZeros();

    std::array<char, precision> m_digits{}; // as characters, the first never '0'
    int m_count = 0;                        // of digits in use; 0 is the number 0
    int m_point = 0;                        // digits in front of the point
    bool m_negative = false;
};

} // namespace tarnwell
