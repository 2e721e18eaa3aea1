#include "platform/VbFormat.h"

#include "platform/RuntimeError.h"

#include <QList>
#include <QStringList>
#include <algorithm>
#include <cmath>

void Decimal::normalize() {
    qsizetype lead = 0;
    while (lead < digits.size() && digits[lead] == u'0')
        ++lead;
    digits.remove(0, lead);
    point -= int(lead);
    while (!digits.isEmpty() && digits.back() == u'0')
        digits.chop(1);
    if (digits.isEmpty())
        point = 0;
}

void Decimal::roundTo(int decimals) {
    const int keep = point + decimals;
    if (keep >= digits.size())
        return;
    if (keep < 0) {
        digits.clear();
        point = 0;
        return;
    }
    const bool up = digits[keep] >= u'5';
    digits.truncate(keep);
    if (up) {
        int i = keep - 1;
        while (i >= 0 && digits[i] == u'9')
            digits[i--] = u'0';
        if (i < 0) {
            digits.prepend(u'1');
            ++point;
        } else {
            digits[i] = QChar(digits[i].unicode() + 1);
        }
    }
    normalize();
}

QString Decimal::integerDigits() const {
    return point <= 0 ? QString() : digits.left(point).leftJustified(point, u'0');
}

QString Decimal::fractionDigits(int count) const {
    QString out;
    for (int i = 0; i < count; ++i) {
        const int at = point + i;
        out += (at >= 0 && at < digits.size()) ? digits[at] : QChar(u'0');
    }
    return out;
}

QString Decimal::generalText() const {
    if (isZero())
        return QStringLiteral("0");
    QString out = negative ? QStringLiteral("-") : QString();
    if (point > 15 || point < -3) {
        const int exponent = point - 1;
        out += digits.left(1);
        if (digits.size() > 1)
            out += vbLocale::decimal + digits.mid(1);
        return out + (exponent < 0 ? QStringLiteral("E-") : QStringLiteral("E+")) +
               QString::number(std::abs(exponent)).rightJustified(2, u'0');
    }
    const QString integer = integerDigits();
    out += integer.isEmpty() ? QStringLiteral("0") : integer;
    const int decimals = int(digits.size()) - point;
    if (decimals > 0)
        out += vbLocale::decimal + fractionDigits(decimals);
    return out;
}

Decimal Decimal::fromDigits(bool negative, const QString& integerDigits) {
    Decimal d;
    d.negative = negative;
    d.digits = integerDigits;
    d.point = int(integerDigits.size());
    d.normalize();
    return d;
}

Decimal Decimal::fromDouble(double v, int significant) {
    if (!std::isfinite(v))
        raiseError(vbErr::Overflow);
    const QString e = QString::number(std::fabs(v), 'e', significant - 1); // "d.ddde+XX"
    const qsizetype at = e.indexOf(u'e');
    Decimal d;
    d.negative = v < 0;
    d.digits = e.left(at).remove(u'.');
    d.point = e.mid(at + 1).toInt() + 1;
    d.normalize();
    return d;
}

namespace {
struct Token {
    enum Kind { Digit, Point, Literal } kind;
    bool zero = false;     // "0" rather than "#"
    bool fraction = false; // after the decimal point
    QString text;
};

Token literal(const QString& text) {
    return Token{Token::Literal, false, false, text};
}

QStringList splitSections(const QString& pattern) {
    QStringList sections;
    QString current;
    bool quoted = false;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (c == u'\\' && !quoted && i + 1 < pattern.size()) {
            current += c;
            current += pattern[++i];
            continue;
        }
        if (c == u'"')
            quoted = !quoted;
        if (c == u';' && !quoted) {
            sections << current;
            current.clear();
            continue;
        }
        current += c;
    }
    sections << current;
    return sections;
}

QString formatSection(Decimal d, const QString& p) {
    QList<Token> tokens;
    bool grouping = false, sawPoint = false;
    int scale = 0;
    for (qsizetype i = 0; i < p.size(); ++i) {
        const QChar c = p[i];
        if (c == u'"') {
            qsizetype end = p.indexOf(u'"', i + 1);
            if (end < 0)
                end = p.size();
            tokens << literal(p.mid(i + 1, end - i - 1));
            i = end;
        } else if (c == u'\\') {
            if (i + 1 < p.size())
                tokens << literal(p[++i]);
        } else if (c == u'0' || c == u'#') {
            tokens << Token{Token::Digit, c == u'0', sawPoint, QString()};
        } else if (c == u'.' && !sawPoint) {
            sawPoint = true;
            tokens << Token{Token::Point, false, false, QString()};
        } else if (c == u',' && !sawPoint && !tokens.isEmpty() && tokens.back().kind == Token::Digit) {
            if (i + 1 < p.size() && (p[i + 1] == u'0' || p[i + 1] == u'#'))
                grouping = true;
            else
                scale -= 3; // "#,##0," shows thousands
        } else {
            if (c == u'%')
                scale += 2;
            tokens << literal(c);
        }
    }

    int integerPlaces = 0, minimumDigits = 0, fractionPlaces = 0, lastZeroFraction = -1;
    bool zeroSeen = false;
    for (const Token& t : tokens) {
        if (t.kind != Token::Digit)
            continue;
        if (t.fraction) {
            if (t.zero)
                lastZeroFraction = fractionPlaces;
            ++fractionPlaces;
        } else {
            zeroSeen = zeroSeen || t.zero;
            integerPlaces += 1;
            minimumDigits += zeroSeen ? 1 : 0;
        }
    }
    if (!d.isZero())
        d.point += scale;
    d.roundTo(fractionPlaces);
    const QString integer = d.integerDigits().rightJustified(minimumDigits, u'0');
    const QString fraction = d.fractionDigits(fractionPlaces);
    int lastShown = lastZeroFraction;
    for (int i = 0; i < fraction.size(); ++i)
        if (fraction[i] != u'0')
            lastShown = std::max(lastShown, i);

    QString out;
    bool signDone = !d.negative;
    auto sign = [&] {
        if (!signDone)
            out += u'-';
        signDone = true;
    };
    // Integer digits fill the placeholders from the right; the first one takes all that remain.
    auto emitInteger = [&](qsizetype from, qsizetype to) {
        for (qsizetype j = std::max<qsizetype>(from, 0); j < to; ++j) {
            out += integer[j];
            const qsizetype right = integer.size() - 1 - j;
            if (grouping && right > 0 && right % 3 == 0)
                out += vbLocale::group;
        }
    };
    int integerSeen = 0, fractionSeen = 0;
    for (const Token& t : tokens) {
        if (t.kind == Token::Literal) {
            out += t.text;
        } else if (t.kind == Token::Point) {
            sign();
            if (integerPlaces == 0)
                emitInteger(0, integer.size());
            out += vbLocale::decimal;
        } else if (!t.fraction) {
            sign();
            const qsizetype at = integer.size() - integerPlaces + integerSeen;
            emitInteger(integerSeen == 0 ? 0 : at, at + 1);
            ++integerSeen;
        } else {
            if (fractionSeen <= lastShown)
                out += fraction[fractionSeen];
            ++fractionSeen;
        }
    }
    if (!signDone)
        out.prepend(u'-');
    return out;
}

const char* const kMonths[] = {"janeiro", "fevereiro", "março",    "abril",   "maio",     "junho",
                               "julho",   "agosto",    "setembro", "outubro", "novembro", "dezembro"};
const char* const kDays[] = {"segunda-feira", "terça-feira", "quarta-feira", "quinta-feira",
                             "sexta-feira",   "sábado",      "domingo"}; // Monday first, as QDate counts

QString monthName(int month, bool full) {
    const QString name = QString::fromUtf8(kMonths[month - 1]);
    return full ? name : name.left(3);
}

QString dayName(int day, bool full) {
    const QString name = QString::fromUtf8(kDays[day - 1]);
    return full ? name : name.left(3);
}

QString twoDigits(int v) {
    return QString::number(v).rightJustified(2, u'0');
}

struct DatePart {
    QChar letter; // null for a literal; 'a' for AM/PM
    int count = 0;
    QString text;
};
} // namespace

QString formatNumberPattern(const Decimal& number, const QString& pattern) {
    const QStringList sections = splitSections(pattern);
    if (number.negative && sections.size() > 1 && !sections[1].isEmpty()) {
        Decimal positive = number;
        positive.negative = false;
        return formatSection(positive, sections[1]);
    }
    if (number.isZero() && sections.size() > 2 && !sections[2].isEmpty())
        return formatSection(number, sections[2]);
    return formatSection(number, sections[0]);
}

QString formatDatePattern(const QDateTime& moment, const QString& pattern) {
    const QDateTime dt = vbLocale::validMoment(moment); // an invalid one has month and weekday 0
    auto startsHere = [&](qsizetype i, const char16_t* word) {
        return QStringView(pattern).mid(i).startsWith(QStringView(word), Qt::CaseInsensitive);
    };
    QList<DatePart> parts;
    for (qsizetype i = 0; i < pattern.size();) {
        const QChar c = pattern[i].toLower();
        if (c == u'"') {
            qsizetype end = pattern.indexOf(u'"', i + 1);
            if (end < 0)
                end = pattern.size();
            parts << DatePart{QChar(), 0, pattern.mid(i + 1, end - i - 1)};
            i = end + 1;
        } else if (c == u'\\') {
            parts << DatePart{QChar(), 0, pattern.mid(i + 1, 1)};
            i += 2;
        } else if (startsHere(i, u"am/pm") || startsHere(i, u"a/p")) {
            const int length = startsHere(i, u"am/pm") ? 5 : 3;
            parts << DatePart{u'a', length, pattern.mid(i, length)};
            i += length;
        } else if (QStringLiteral("dmyhnswq").contains(c)) {
            qsizetype end = i;
            while (end < pattern.size() && pattern[end].toLower() == c)
                ++end;
            parts << DatePart{c, int(end - i), QString()};
            i = end;
        } else {
            parts << DatePart{QChar(), 0, QString(pattern[i])};
            ++i;
        }
    }
    // "m" is the minute right after an hour or right before a second.
    bool twelveHours = false;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        twelveHours = twelveHours || parts[i].letter == u'a';
        if (parts[i].letter != u'm' || parts[i].count > 2)
            continue;
        qsizetype before = i - 1, after = i + 1;
        while (before >= 0 && parts[before].letter.isNull())
            --before;
        while (after < parts.size() && parts[after].letter.isNull())
            ++after;
        if ((before >= 0 && parts[before].letter == u'h') ||
            (after < parts.size() && parts[after].letter == u's'))
            parts[i].letter = u'n';
    }

    const QDate date = dt.date();
    const QTime time = dt.time();
    QString out;
    for (const DatePart& part : parts) {
        const int n = part.count;
        switch (part.letter.unicode()) {
        case 0:
            out += part.text;
            break;
        case u'd':
            if (n <= 2)
                out += n == 1 ? QString::number(date.day()) : twoDigits(date.day());
            else if (n <= 4)
                out += dayName(date.dayOfWeek(), n == 4);
            else if (n == 5)
                out += date.toString(vbLocale::shortDate);
            else
                out += QStringLiteral("%1, %2 de %3 de %4")
                           .arg(dayName(date.dayOfWeek(), true))
                           .arg(date.day())
                           .arg(monthName(date.month(), true))
                           .arg(date.year());
            break;
        case u'm':
            out += n == 1   ? QString::number(date.month())
                   : n == 2 ? twoDigits(date.month())
                            : monthName(date.month(), n >= 4);
            break;
        case u'y':
            if (n == 1 || n == 3)
                out +=
                    (n == 3 ? twoDigits(date.year() % 100) : QString()) + QString::number(date.dayOfYear());
            else
                out += n == 2 ? twoDigits(date.year() % 100)
                              : QString::number(date.year()).rightJustified(4, u'0');
            break;
        case u'h': {
            int hour = time.hour();
            if (twelveHours)
                hour = hour % 12 == 0 ? 12 : hour % 12;
            out += n == 1 ? QString::number(hour) : twoDigits(hour);
            break;
        }
        case u'n':
            out += n == 1 ? QString::number(time.minute()) : twoDigits(time.minute());
            break;
        case u's':
            out += n == 1 ? QString::number(time.second()) : twoDigits(time.second());
            break;
        case u'w': {
            const int sundayFirst = date.dayOfWeek() % 7; // Sunday 0
            const int janFirst = QDate(date.year(), 1, 1).dayOfWeek() % 7;
            out += QString::number(n == 1 ? sundayFirst + 1 : (date.dayOfYear() - 1 + janFirst) / 7 + 1);
            break;
        }
        case u'q':
            out += QString::number((date.month() - 1) / 3 + 1);
            break;
        case u'a':
            out += part.text.section(u'/', time.hour() < 12 ? 0 : 1, time.hour() < 12 ? 0 : 1);
            break;
        }
    }
    return out;
}
