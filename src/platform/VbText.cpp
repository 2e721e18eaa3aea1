#include "platform/VbText.h"

#include "platform/RuntimeError.h"
#include "platform/VbFormat.h"

#include <QRegularExpression>
#include <cctype>
#include <cmath>
#include <limits>

// Choices made where the original's behaviour is not pinned down, all in one place:
// - Format: up to three sections (positive;negative;zero); an empty pattern gives the value's
//   text. A "," after a digit placeholder and not before another scales by a thousand, elsewhere in
//   the integer part it is a literal. Scientific notation and named formats are not recognised.
//   A number always takes the numeric patterns, a date the date patterns; a text that reads as a
//   number is a number, else one that reads as a date is a date, else it comes back unchanged.
// - Format keeps the sign of a negative that rounds to zero ("-0,00"); FormatNumber and
//   FormatCurrency drop it ("0,00"), which is what a till user expects to read.
// - Negative money is "-R$ 3,20" ("(R$ 3,20)" with parentheses asked for).
// - Text in "&H"/"&O" reads as an unsigned number (CDbl("&HFFFF") = 65535); Val keeps the
//   original's 16/32-bit sign for up to 4/8 hex digits (Val("&HFFFF") = -1).
// - Text that reads as a number out of range (hex or octal past 64 bits, a decimal past a Double)
//   is not numeric, and CDbl, CInt, CLng and Val raise 6 Overflow on it rather than 13.
// - Date text: "d/M/yyyy [H:mm[:ss]]", ISO "yyyy-MM-dd[ T]HH:mm[:ss[.zzz]]" and "H:mm[:ss]"; a
//   two-digit year below 30 is in the 2000s. Dates carry no time zone: DateDiff counts on the
//   wall clock.
// - A date whose day is the base date (30/12/1899) prints its time only, midnight its date only.
// - An invalid QDate or QDateTime (no such day) is the base date at midnight, as a Date holding 0
//   is: its serial is 0 and it prints as such.
// - "m"/"mm" in a date pattern is the minute right after an hour or right before a second.
// - Boolean to text is "True"/"False"; CBool also reads "Verdadeiro"/"Falso".

namespace {
enum class Kind { Null, Bool, Integer, Unsigned, Float, Text, Date, Other };

Kind kindOf(const QVariant& v) {
    if (IsNull(v))
        return Kind::Null;
    switch (v.typeId()) {
    case QMetaType::Bool:
        return Kind::Bool;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
        return Kind::Integer;
    case QMetaType::ULongLong:
        return Kind::Unsigned;
    case QMetaType::Double:
    case QMetaType::Float:
        return Kind::Float;
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QChar:
        return Kind::Text;
    case QMetaType::QDate:
    case QMetaType::QDateTime:
    case QMetaType::QTime:
        return Kind::Date;
    default:
        return Kind::Other;
    }
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}
bool isBlank(QChar c) {
    return c == u' ' || c == u'\t';
}

// Where the run of digits of base 16 or 8 that starts at `from` ends.
qsizetype radixEnd(const QString& s, qsizetype from, int base) {
    const QString digits = QStringLiteral("0123456789ABCDEF").left(base);
    while (from < s.size() && digits.contains(s[from].toUpper()))
        ++from;
    return from;
}

QString trimBlanks(const QString& text) {
    qsizetype begin = 0, end = text.size();
    while (begin < end && isBlank(text[begin]))
        ++begin;
    while (end > begin && isBlank(text[end - 1]))
        --end;
    return text.mid(begin, end - begin);
}

qint64 floorDiv(qint64 a, qint64 b) {
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)));
}

enum class Reading { NotANumber, Number, OutOfRange };

// Reads text as the pt-BR run time does: blanks around, one sign before or after, parentheses,
// "R$", group points anywhere in the integer part, one decimal comma, an exponent, &H/&O.
Reading readNumber(const QString& text, double& out) {
    const QString s = trimBlanks(text);
    if (s.size() > 2 && s[0] == u'&') {
        const QChar b = s[1].toUpper();
        const int base = b == u'H' ? 16 : b == u'O' ? 8 : 0;
        if (base == 0 || radixEnd(s, 2, base) != s.size())
            return Reading::NotANumber;
        bool ok = false; // with every digit valid, only past 64 bits
        out = double(QStringView(s).mid(2).toULongLong(&ok, base));
        return ok ? Reading::Number : Reading::OutOfRange;
    }
    const qsizetype n = s.size();
    qsizetype i = 0;
    bool negative = false, sign = false, paren = false, closed = false, currency = false;
    auto affix = [&] {
        while (i < n && isBlank(s[i]))
            ++i;
        if (i < n && (s[i] == u'+' || s[i] == u'-') && !sign && !paren) {
            sign = true;
            negative = s[i++] == u'-';
        } else if (s.mid(i, 2) == u"R$" && !currency) {
            currency = true;
            i += 2;
        } else {
            return false;
        }
        return true;
    };
    while (true) {
        if (affix())
            continue;
        if (i < n && s[i] == u'(' && !sign && !paren) {
            paren = true;
            negative = true;
            ++i;
            continue;
        }
        break;
    }
    QString integer, fraction;
    bool decimal = false;
    for (; i < n; ++i) {
        if (isDigit(s[i]))
            (decimal ? fraction : integer) += s[i];
        else if (s[i] == vbLocale::decimal && !decimal)
            decimal = true;
        else if (s[i] != vbLocale::group || decimal)
            break;
    }
    if (integer.isEmpty() && fraction.isEmpty())
        return Reading::NotANumber;
    QString exponent;
    if (i < n && (s[i] == u'e' || s[i] == u'E')) {
        ++i;
        if (i < n && (s[i] == u'+' || s[i] == u'-'))
            exponent += s[i++];
        const qsizetype start = i;
        while (i < n && isDigit(s[i]))
            exponent += s[i++];
        if (i == start)
            return Reading::NotANumber;
    }
    while (true) {
        if (affix())
            continue;
        if (i < n && s[i] == u')' && paren && !closed) {
            closed = true;
            ++i;
            continue;
        }
        break;
    }
    if (i != n || paren != closed)
        return Reading::NotANumber;
    QString c = (negative ? QStringLiteral("-0") : QStringLiteral("0")) + integer;
    if (!fraction.isEmpty())
        c += u'.' + fraction;
    if (!exponent.isEmpty())
        c += u'e' + exponent;
    bool ok = false;
    out = c.toDouble(&ok);
    if (ok)
        return Reading::Number;
    return std::isinf(out) ? Reading::OutOfRange : Reading::NotANumber;
}

int twoDigitYear(int year) {
    return year < 30 ? 2000 + year : 1900 + year;
}

bool readDate(const QString& text, QDateTime& out) {
    static const QRegularExpression local(
        QStringLiteral("^(\\d{1,2})/(\\d{1,2})/(\\d{1,4})(?:\\s+(\\d{1,2}):(\\d{1,2})(?::(\\d{1,2}))?)?$"));
    static const QRegularExpression iso(QStringLiteral(
        "^(\\d{4})-(\\d{1,2})-(\\d{1,2})(?:[T ](\\d{1,2}):(\\d{2})(?::(\\d{2})(?:\\.\\d+)?)?)?$"));
    static const QRegularExpression clock(QStringLiteral("^(\\d{1,2}):(\\d{1,2})(?::(\\d{1,2}))?$"));
    const QString s = trimBlanks(text);
    QDate date;
    QRegularExpressionMatch m;
    int timeGroup = 4;
    if ((m = local.match(s)).hasMatch()) {
        int year = m.captured(3).toInt();
        if (m.captured(3).size() <= 2)
            year = twoDigitYear(year);
        date = QDate(year, m.captured(2).toInt(), m.captured(1).toInt());
    } else if ((m = iso.match(s)).hasMatch()) {
        date = QDate(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    } else if ((m = clock.match(s)).hasMatch()) {
        date = vbLocale::baseDate;
        timeGroup = 1;
    } else {
        return false;
    }
    const QTime time(m.captured(timeGroup).toInt(), m.captured(timeGroup + 1).toInt(),
                     m.captured(timeGroup + 2).toInt());
    if (!date.isValid() || !time.isValid())
        return false;
    out = QDateTime(date, time);
    return true;
}

// The original's dates are days since 30/12/1899; the time is the fraction, always added.
QDateTime fromSerial(double serial) {
    if (!std::isfinite(serial) || std::fabs(serial) > 2958465.0)
        raiseError(vbErr::Overflow);
    qint64 days = qint64(std::trunc(serial));
    qint64 seconds = std::llround(std::fabs(serial - double(days)) * 86400.0);
    if (seconds >= 86400) {
        seconds -= 86400;
        days += serial < 0 ? -1 : 1;
    }
    return QDateTime(vbLocale::baseDate.addDays(days), QTime(0, 0).addSecs(int(seconds)));
}

double toSerial(const QDateTime& dt) {
    const double days = double(vbLocale::baseDate.daysTo(dt.date()));
    const double time = dt.time().msecsSinceStartOfDay() / 86400000.0;
    return days < 0 ? days - time : days + time;
}

QDateTime dateOf(const QVariant& v) {
    switch (v.typeId()) {
    case QMetaType::QDate:
        return vbLocale::validMoment(QDateTime(v.toDate(), QTime(0, 0)));
    case QMetaType::QTime:
        return QDateTime(vbLocale::baseDate, v.toTime());
    default:
        return vbLocale::validMoment(v.toDateTime());
    }
}

QString dateText(const QDateTime& dt) {
    if (dt.date() == vbLocale::baseDate)
        return dt.time().toString(vbLocale::longTime);
    if (dt.time() == QTime(0, 0))
        return dt.date().toString(vbLocale::shortDate);
    return dt.date().toString(vbLocale::shortDate) + u' ' + dt.time().toString(vbLocale::longTime);
}

Decimal decimalOf(const QVariant& value) {
    switch (kindOf(value)) {
    case Kind::Bool:
        return Decimal::fromDigits(value.toBool(), value.toBool() ? QStringLiteral("1") : QString());
    case Kind::Integer: {
        const qlonglong v = value.toLongLong();
        return Decimal::fromDigits(v < 0, QString::number(v).remove(u'-'));
    }
    case Kind::Unsigned:
        return Decimal::fromDigits(false, QString::number(value.toULongLong()));
    case Kind::Float:
        return Decimal::fromDouble(value.toDouble(), value.typeId() == QMetaType::Float ? 7 : 15);
    default:
        return Decimal::fromDouble(CDbl(value));
    }
}

qint64 wholeNumber(const QVariant& value, qint64 low, qint64 high) {
    const Kind kind = kindOf(value);
    if (kind == Kind::Integer || kind == Kind::Unsigned) {
        if (kind == Kind::Unsigned && value.toULongLong() > quint64(high))
            raiseError(vbErr::Overflow);
        const qint64 v = value.toLongLong();
        if (v < low || v > high)
            raiseError(vbErr::Overflow);
        return v;
    }
    const double d = CDbl(value);
    const double below = std::floor(d);
    const double rest = d - below;
    double r = below;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(below, 2.0) != 0.0))
        r = below + 1;
    if (!(r >= double(low) && r <= double(high)))
        raiseError(vbErr::Overflow);
    return qint64(r);
}
} // namespace

bool IsNull(const QVariant& value) {
    return !value.isValid() || value.isNull();
}

namespace {
QString formatDecimal(const Decimal& d, const QString& pattern) {
    return pattern.isEmpty() ? d.generalText() : formatNumberPattern(d, pattern);
}
} // namespace

QString Format(const QVariant& value, const QString& pattern) {
    switch (kindOf(value)) {
    case Kind::Null:
        return QString();
    case Kind::Date:
        return pattern.isEmpty() ? CStr(value) : formatDatePattern(dateOf(value), pattern);
    case Kind::Text: {
        const QString text = value.toString();
        double number = 0;
        QDateTime date;
        if (pattern.isEmpty())
            return text;
        if (readNumber(text, number) == Reading::Number)
            return formatDecimal(Decimal::fromDouble(number), pattern);
        if (readDate(text, date))
            return formatDatePattern(date, pattern);
        return text;
    }
    case Kind::Other:
        return value.toString();
    default:
        return formatDecimal(decimalOf(value), pattern);
    }
}

namespace {
QString formatMoney(const QVariant& value, int digits, int leading, int parens, int group, bool currency) {
    Decimal d = decimalOf(value);
    if (digits < 0)
        digits = vbLocale::digits;
    d.roundTo(digits);
    const bool negative = d.negative && !d.isZero();
    const QString integer = leading == 0 ? QStringLiteral("#") : QStringLiteral("0");
    QString pattern = group == 0 ? integer : QStringLiteral("#,##") + integer;
    if (digits > 0)
        pattern += u'.' + QString(digits, u'0');
    d.negative = false;
    QString text = formatNumberPattern(d, pattern);
    if (currency)
        text = vbLocale::currency + text;
    if (!negative)
        return text;
    return parens == -1 ? u'(' + text + u')' : u'-' + text;
}
} // namespace

QString FormatNumber(const QVariant& value, int digits, int includeLeadingDigit, int useParensForNegative,
                     int groupDigits) {
    return formatMoney(value, digits, includeLeadingDigit, useParensForNegative, groupDigits, false);
}

QString FormatCurrency(const QVariant& value, int digits, int includeLeadingDigit, int useParensForNegative,
                       int groupDigits) {
    return formatMoney(value, digits, includeLeadingDigit, useParensForNegative, groupDigits, true);
}

bool IsNumeric(const QVariant& value) {
    switch (kindOf(value)) {
    case Kind::Bool:
    case Kind::Integer:
    case Kind::Unsigned:
    case Kind::Float:
        return true;
    case Kind::Text: {
        double ignored = 0;
        return readNumber(value.toString(), ignored) == Reading::Number;
    }
    default:
        return false;
    }
}

double CDbl(const QVariant& value) {
    switch (kindOf(value)) {
    case Kind::Null:
        raiseError(vbErr::InvalidUseOfNull);
    case Kind::Bool:
        return value.toBool() ? -1.0 : 0.0;
    case Kind::Integer:
    case Kind::Unsigned:
    case Kind::Float:
        return value.toDouble();
    case Kind::Date:
        return toSerial(dateOf(value));
    case Kind::Text: {
        double number = 0;
        switch (readNumber(value.toString(), number)) {
        case Reading::Number:
            return number;
        case Reading::OutOfRange:
            raiseError(vbErr::Overflow);
        default:
            raiseError(vbErr::TypeMismatch);
        }
    }
    default:
        raiseError(vbErr::TypeMismatch);
    }
}

qint16 CInt(const QVariant& value) {
    return qint16(wholeNumber(value, -32768, 32767));
}

qint32 CLng(const QVariant& value) {
    return qint32(wholeNumber(value, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()));
}

bool CBool(const QVariant& value) {
    switch (kindOf(value)) {
    case Kind::Null:
        raiseError(vbErr::InvalidUseOfNull);
    case Kind::Bool:
        return value.toBool();
    case Kind::Text: {
        const QString t = trimBlanks(value.toString());
        for (const char* word : {"True", "Verdadeiro"})
            if (t.compare(QLatin1String(word), Qt::CaseInsensitive) == 0)
                return true;
        for (const char* word : {"False", "Falso"})
            if (t.compare(QLatin1String(word), Qt::CaseInsensitive) == 0)
                return false;
        return CDbl(value) != 0.0;
    }
    default:
        return CDbl(value) != 0.0;
    }
}

QString CStr(const QVariant& value) {
    switch (kindOf(value)) {
    case Kind::Null:
        raiseError(vbErr::InvalidUseOfNull);
    case Kind::Bool:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case Kind::Integer:
        return QString::number(value.toLongLong());
    case Kind::Unsigned:
        return QString::number(value.toULongLong());
    case Kind::Float:
        return decimalOf(value).generalText();
    case Kind::Date:
        return dateText(dateOf(value));
    case Kind::Text:
        return value.toString();
    default:
        raiseError(vbErr::TypeMismatch);
    }
}

QDateTime CDate(const QVariant& value) {
    switch (kindOf(value)) {
    case Kind::Null:
        raiseError(vbErr::InvalidUseOfNull);
    case Kind::Date:
        return dateOf(value);
    case Kind::Text: {
        QDateTime date;
        if (readDate(value.toString(), date))
            return date;
        return fromSerial(CDbl(value));
    }
    default:
        return fromSerial(CDbl(value));
    }
}

double Val(const QString& text) {
    QString s;
    for (const QChar c : text)
        if (c != u' ' && c != u'\t' && c != u'\n')
            s += c;
    if (s.size() > 1 && s[0] == u'&' && (s[1].toUpper() == u'H' || s[1].toUpper() == u'O')) {
        const int base = s[1].toUpper() == u'H' ? 16 : 8;
        const QStringView digits = QStringView(s).mid(2, radixEnd(s, 2, base) - 2);
        bool ok = false;
        const qulonglong v = digits.toULongLong(&ok, base);
        if (!ok && !digits.isEmpty())
            raiseError(vbErr::Overflow);
        if (v <= 0xFFFF)
            return double(qint16(quint16(v)));
        if (v <= 0xFFFFFFFF)
            return double(qint32(quint32(v)));
        return double(v);
    }
    qsizetype i = 0;
    QString c = QStringLiteral("0");
    if (i < s.size() && (s[i] == u'+' || s[i] == u'-'))
        c.prepend(s[i++]);
    auto digits = [&] {
        while (i < s.size() && isDigit(s[i]))
            c += s[i++];
    };
    digits();
    if (i < s.size() && s[i] == u'.') {
        c += s[i++];
        digits();
    }
    if (i + 1 < s.size() && QStringLiteral("eEdD").contains(s[i])) {
        const qsizetype mark = i;
        const qsizetype length = c.size();
        c += u'e';
        ++i;
        if (s[i] == u'+' || s[i] == u'-')
            c += s[i++];
        const qsizetype before = c.size();
        digits();
        if (c.size() == before) { // an exponent without digits is not one
            c.truncate(length);
            i = mark;
        }
    }
    const double value = c.toDouble();
    if (std::isinf(value))
        raiseError(vbErr::Overflow);
    return value;
}

double Int(double value) {
    return std::floor(value);
}

double Fix(double value) {
    return std::trunc(value);
}

double Divide(double dividend, double divisor) {
    if (divisor == 0)
        raiseError(dividend == 0 ? vbErr::Overflow : vbErr::DivisionByZero);
    return dividend / divisor;
}

qint64 DateDiff(const QString& interval, const QDateTime& from, const QDateTime& to) {
    const QString unit = interval.toLower();
    auto seconds = [](const QDateTime& t) {
        return t.date().toJulianDay() * 86400 + t.time().msecsSinceStartOfDay() / 1000;
    };
    auto months = [](const QDateTime& t) { return qint64(t.date().year()) * 12 + t.date().month() - 1; };
    const qint64 days = to.date().toJulianDay() - from.date().toJulianDay();
    if (unit == u"s")
        return seconds(to) - seconds(from);
    if (unit == u"n")
        return floorDiv(seconds(to), 60) - floorDiv(seconds(from), 60);
    if (unit == u"h")
        return floorDiv(seconds(to), 3600) - floorDiv(seconds(from), 3600);
    if (unit == u"d" || unit == u"y")
        return days;
    if (unit == u"w")
        return days / 7;
    if (unit == u"ww") // Sundays crossed; Julian day 0 is a Monday
        return floorDiv(to.date().toJulianDay() + 1, 7) - floorDiv(from.date().toJulianDay() + 1, 7);
    if (unit == u"m")
        return months(to) - months(from);
    if (unit == u"q")
        return floorDiv(months(to), 3) - floorDiv(months(from), 3);
    if (unit == u"yyyy")
        return to.date().year() - from.date().year();
    raiseError(vbErr::InvalidCall);
}

QString UCase(const QString& text) {
    QString out = text;
    for (QChar& c : out)
        c = c.toUpper(); // one character for one: "ß" stays, as Len must not change
    return out;
}

QString Trim(const QString& text) {
    qsizetype begin = 0, end = text.size();
    while (begin < end && text[begin] == u' ')
        ++begin;
    while (end > begin && text[end - 1] == u' ')
        --end;
    return text.mid(begin, end - begin);
}

QChar decimalSeparator() {
    return vbLocale::decimal;
}

QChar groupSeparator() {
    return vbLocale::group;
}
