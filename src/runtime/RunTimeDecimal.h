#pragma once

#include <QString>

#include <array>

namespace tarnwell {

/// Where a number that lies exactly between two goes.
enum class HalfRule { AwayFromZero, ToEven };

/// A finite number as the run time sees its digits: 15 significant ones and the place of the point. Rounding
/// works on these digits, so that 2.345 is a half although no double is exactly 2.345.
class Decimal {
public:
    explicit Decimal(double number);

    [[nodiscard]] bool isNegative() const { return m_negative; }
    [[nodiscard]] bool isZero() const { return m_count == 0; }
    /// Digits before the point; 0 or less when the number is below 1.
    [[nodiscard]] int wholeDigits() const { return m_point; }
    /// The digit at a place: 0 is the first behind the point, -1 the last before it. '0' outside.
    [[nodiscard]] char digitAt(int place) const;

    /// Keeps `decimals` digits behind the point. False when there were no more than that.
    bool round(int decimals, HalfRule rule);
    [[nodiscard]] double toDouble() const;

private:
    static constexpr int precision = 15;

    void cutTo(int count, bool up);
    void dropTrailingZeros();

    std::array<char, precision> m_digits{}; // as characters, the first never '0'
    int m_count = 0;                        // of digits in use; 0 is the number 0
    int m_point = 0;                        // digits in front of the point
    bool m_negative = false;
};

} // namespace tarnwell
