#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

// Inside of the text services (VbText.h): the pt-BR locale pinned, numbers as decimal digits, and
// the pattern engines of Format.

namespace vbLocale {
constexpr QChar decimal = u',';
constexpr QChar group = u'.';
inline const QString currency = QStringLiteral("R$ "); // an ordinary space
constexpr int digits = 2;
inline const QString shortDate = QStringLiteral("dd/MM/yyyy");
inline const QString longTime = QStringLiteral("HH:mm:ss");
inline const QDate baseDate{1899, 12, 30}; // day 0 of the original's dates
// An invalid moment stands for day 0 at midnight (see VbText.cpp).
inline QDateTime validMoment(const QDateTime& dt) {
    return dt.isValid() ? dt : QDateTime(baseDate, QTime(0, 0));
}
} // namespace vbLocale

// A number as its decimal digits: 0.d1d2d3... times 10^point, no leading or trailing zeros.
struct Decimal {
    bool negative = false;
    QString digits; // empty for zero
    int point = 0;  // digits before the decimal point; negative below 0.1

    bool isZero() const { return digits.isEmpty(); }
    void normalize();
    void roundTo(int decimals); // half away from zero, on the decimal digits
    QString integerDigits() const;
    QString fractionDigits(int count) const;
    // The general text: 15 digits at most, comma decimal, E notation outside 1E-4..1E15.
    QString generalText() const;

    static Decimal fromDigits(bool negative, const QString& integerDigits);
    // At most `significant` digits of the double, as the original printed it; Overflow if not finite.
    static Decimal fromDouble(double v, int significant = 15);
};

// A number through a pattern of "0", "#", ".", ",", "%" and literals (one to three sections).
QString formatNumberPattern(const Decimal& number, const QString& pattern);

// A date through a pattern of d, m, y, h, n, s, w, q, AM/PM and literals.
QString formatDatePattern(const QDateTime& dt, const QString& pattern);
