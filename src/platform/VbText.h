#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>

// The original's text, number and date services, in Brazilian Portuguese (decimal comma, point
// for grouping, "R$ " before money). A Null is an invalid or null QVariant.
//
// Numbers are rounded half away from zero on their decimal digits, never on the binary value.
// Conversions raise the original's run-time errors: 13 Type mismatch, 6 Overflow, 94 Invalid use
// of Null.

bool IsNull(const QVariant& value);

// Format(value, pattern): "0" a digit or zero, "#" a digit or nothing, "." the decimal separator,
// "," between placeholders turns grouping on, other characters (and "\x", "quoted text") as they
// stand. A text value is read with the locale first; one that doesn't read comes back unchanged.
// A date value takes the date patterns (dd, MM, yyyy, hh, nn, ss).
QString Format(const QVariant& value, const QString& pattern);

// FormatNumber/FormatCurrency: digits -1 means the locale's 2; the tristates are -1 true, 0 false,
// -2 the locale's default.
QString FormatNumber(const QVariant& value, int digits = -1, int includeLeadingDigit = -2,
                     int useParensForNegative = -2, int groupDigits = -2);
QString FormatCurrency(const QVariant& value, int digits = -1, int includeLeadingDigit = -2,
                       int useParensForNegative = -2, int groupDigits = -2);

bool IsNumeric(const QVariant& value);

double CDbl(const QVariant& value);
qint16 CInt(const QVariant& value); // halves to even, -32768..32767
qint32 CLng(const QVariant& value); // halves to even
bool CBool(const QVariant& value);
QString CStr(const QVariant& value); // a Double with at most 15 digits, a Date in its default text
QDateTime CDate(const QVariant& value);
double Val(const QString& text);

double Int(double value); // rounds down
double Fix(double value); // cuts towards zero
// The / operator: a zero divisor raises 11 Division by zero, or 6 Overflow for 0 / 0.
double Divide(double dividend, double divisor);

// Boundaries crossed between two moments; "n" minutes (seconds ignored), "s" seconds.
qint64 DateDiff(const QString& interval, const QDateTime& from, const QDateTime& to);

QString UCase(const QString& text);
QString Trim(const QString& text); // ASCII spaces only

// The locale's texts, pinned here: decimal ",", group ".", "R$ ".
QChar decimalSeparator();
QChar groupSeparator();
