#include "platform/RuntimeError.h"
#include "platform/VbText.h"
#include "support/Support.h"
#include "support/TestMain.h"

#include <QHash>
#include <QTest>
#include <functional>

namespace {
QDateTime at(int day, int month, int year, int h = 0, int m = 0, int s = 0) {
    return QDateTime(QDate(year, month, day), QTime(h, m, s));
}

const QVariant Null;
} // namespace

// The patterns and conversions the system calls, with the cases where the original differs from
// what C++ or Qt would give.
class TestVbText : public QObject {
    Q_OBJECT

private slots:
    void format_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("expected");
        auto row = [](const char* name, const QVariant& value, const char* pattern, const char* expected) {
            QTest::newRow(name) << value << QString::fromUtf8(pattern) << QString::fromUtf8(expected);
        };
        row("money", 17, "#0.00", "17,00");
        row("no grouping", 1234.5, "#0.00", "1234,50");
        row("2.675 on its decimal digits", 2.675, "#0.00", "2,68");
        row("0.125 half away from zero", 0.125, "#0.00", "0,13");
        row("negative half away from zero", -0.125, "#0.00", "-0,13");
        row("carry", 9.995, "#0.00", "10,00");
        row("negative rounding to zero keeps its sign", -0.001, "#0.00", "-0,00");
        row("table number", 7, "0000", "0007");
        row("table number of a fraction", 12.5, "0000", "0013");
        row("integer never cut", 12345, "0000", "12345");
        row("hours", 5, "#00h", "05h");
        row("hours beyond two digits", 130, "#00h", "130h");
        row("minutes", 7, "00m", "07m");
        row("text read with the locale", "1.234,5", "#0.000", "1234,500");
        row("unreadable text unchanged", "abc", "0000", "abc");
        row("empty text unchanged", "", "0000", "");
        row("log file name", at(15, 1, 2024, 9, 5, 7), "ddMMyyyy", "15012024");
        row("invalid date is day zero", QDateTime(), "dddd d mmmm yyyy", "sábado 30 dezembro 1899");
        row("invalid day, short names", QDate(), "ddd mmm", "sáb dez");
    }
    void format() {
        QFETCH(QVariant, value);
        QFETCH(QString, pattern);
        QFETCH(QString, expected);
        QCOMPARE(Format(value, pattern), expected);
    }

    void formatNumber_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("digits");
        QTest::addColumn<bool>("currency");
        QTest::addColumn<QString>("expected");
        QTest::newRow("half away from zero") << QVariant(0.125) << 2 << false << "0,13";
        QTest::newRow("grouped") << QVariant(1234.5) << 2 << false << "1.234,50";
        QTest::newRow("leading zero") << QVariant(0.5) << 2 << false << "0,50";
        QTest::newRow("negative") << QVariant(-3.2) << 2 << false << "-3,20";
        QTest::newRow("zero keeps no sign") << QVariant(-0.001) << 2 << false << "0,00";
        QTest::newRow("text regrouped") << QVariant("12345,678") << 3 << false << "12.345,678";
        QTest::newRow("currency") << QVariant(1234.5) << 2 << true << "R$ 1.234,50";
        QTest::newRow("negative currency") << QVariant(-3.2) << 2 << true << "-R$ 3,20";
    }
    void formatNumber() {
        QFETCH(QVariant, value);
        QFETCH(int, digits);
        QFETCH(bool, currency);
        QFETCH(QString, expected);
        QCOMPARE(currency ? FormatCurrency(value, digits) : FormatNumber(value, digits, -1), expected);
    }

    void isNumeric_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("expected");
        for (const char* text : {" 12 ", "-5", "1.234,56", ",5", "R$ 1.234,50", "12.34"})
            QTest::newRow(text) << QVariant(QString::fromUtf8(text)) << true;
        for (const char* text : {"&HFFFFFFFFFFFFFFFF", "&H00000000000000000001"})
            QTest::newRow(text) << QVariant(QString::fromUtf8(text)) << true;
        for (const char* text : {"", ",", "-", "12abc", "1,2,3", "abc", "&H10000000000000000",
                                 "&O2000000000000000000000", "1e400"})
            QTest::newRow(text) << QVariant(QString::fromUtf8(text)) << false;
        QTest::newRow("a number") << QVariant(5.5) << true;
        QTest::newRow("Null") << Null << false;
    }
    void isNumeric() {
        QFETCH(QVariant, value);
        QFETCH(bool, expected);
        QCOMPARE(IsNumeric(value), expected);
    }

    // The conversions the system calls on typed text and on the store's values. CInt and CLng take
    // halves to even, unlike Format.
    void conversions_data() {
        QTest::addColumn<QString>("function");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QVariant>("expected");
        QTest::addColumn<int>("error");
        auto row = [](const char* function, const char* name, const QVariant& value, const QVariant& expected,
                      int error = 0) {
            QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(function, name)))
                << QString::fromUtf8(function) << value << expected << error;
        };
        row("CDbl", "locale decimal", "1.234,5", 1234.5);
        row("CDbl", "12.34", "12.34", 1234.0);
        row("CDbl", "money", "R$ 1.234,50", 1234.5);
        row("CDbl", "a double", 2.25, 2.25);
        row("CDbl", "empty", "", {}, vbErr::TypeMismatch);
        row("CDbl", "letters", "abc", {}, vbErr::TypeMismatch);
        row("CDbl", "Null", Null, {}, vbErr::InvalidUseOfNull);
        row("CDbl", "64-bit hex", "&HFFFFFFFFFFFFFFFF", 18446744073709551615.0);
        row("CDbl", "hex past 64 bits", "&H10000000000000000", {}, vbErr::Overflow);
        row("CDbl", "octal past 64 bits", "&O2000000000000000000000", {}, vbErr::Overflow);
        row("CDbl", "beyond a Double", "1e400", {}, vbErr::Overflow);
        row("CDbl", "below a Double", "-1e400", {}, vbErr::Overflow);
        row("CInt", "0.5", 0.5, 0);
        row("CInt", "1.5", 1.5, 2);
        row("CInt", "2.5", 2.5, 2);
        row("CInt", "-2.5", -2.5, -2);
        row("CInt", "2.6", 2.6, 3);
        row("CInt", "top", 32767.4, 32767);
        row("CInt", "32767.5", 32767.5, {}, vbErr::Overflow);
        row("CInt", "below bottom", -32769, {}, vbErr::Overflow);
        row("CInt", "a wide column", qlonglong(40000), {}, vbErr::Overflow);
        row("CInt", "text 12.34", "12.34", 1234);
        row("CInt", "text half", "2,5", 2);
        row("CInt", "letters", "abc", {}, vbErr::TypeMismatch);
        row("CInt", "beyond a Double", "1e400", {}, vbErr::Overflow);
        row("CInt", "Null", Null, {}, vbErr::InvalidUseOfNull);
        row("CLng", "3.5", 3.5, 4);
        row("CLng", "beyond an Integer", 40000.0, 40000);
        row("CLng", "beyond a Long", 3e9, {}, vbErr::Overflow);
        row("CBool", "zero", 0, false);
        row("CBool", "five", 5, true);
        row("CBool", "a bit", true, true);
        row("CBool", "Null", Null, {}, vbErr::InvalidUseOfNull);
        row("CStr", "33.33", 33.33, "33,33");
        row("CStr", "a third", 1.0 / 3, "0,333333333333333");
        row("CStr", "two thirds", 2.0 / 3, "0,666666666666667");
        row("CStr", "0.1 + 0.2", 0.1 + 0.2, "0,3");
        row("CStr", "whole double", 100.0, "100");
        row("CStr", "negative", -1.5, "-1,5");
        row("CStr", "an int", 42, "42");
        row("CStr", "date and time", at(5, 3, 2024, 14, 7, 9), "05/03/2024 14:07:09");
        row("CStr", "midnight", at(5, 3, 2024), "05/03/2024");
        row("CStr", "invalid date", QDateTime(), "00:00:00");
        row("CStr", "Null", Null, {}, vbErr::InvalidUseOfNull);
        const QDateTime moment = at(5, 3, 2024, 14, 7, 9);
        row("CDate", "date and time", "05/03/2024 14:07:09", moment);
        row("CDate", "as the store keeps it", "2024-03-05 14:07:09", moment);
        row("CDate", "a QDateTime", moment, moment);
        row("CDate", "no such day", "31/02/2024", {}, vbErr::TypeMismatch);
        row("CDate", "Null", Null, {}, vbErr::InvalidUseOfNull);
        row("Val", "blanks skipped, the comma stops", " 1 2,5", 12.0);
        row("Val", "stops at letters", "1.5abc", 1.5);
        row("Val", "beyond a Double", "1e400", {}, vbErr::Overflow);
        row("Val", "hex past 64 bits", "&H10000000000000000", {}, vbErr::Overflow);
    }
    void conversions() {
        QFETCH(QString, function);
        QFETCH(QVariant, value);
        QFETCH(QVariant, expected);
        QFETCH(int, error);
        const QHash<QString, std::function<QVariant()>> call = {
            {QStringLiteral("CDbl"), [&] { return QVariant(CDbl(value)); }},
            {QStringLiteral("CInt"), [&] { return QVariant(int(CInt(value))); }},
            {QStringLiteral("CLng"), [&] { return QVariant(CLng(value)); }},
            {QStringLiteral("CBool"), [&] { return QVariant(CBool(value)); }},
            {QStringLiteral("CStr"), [&] { return QVariant(CStr(value)); }},
            {QStringLiteral("CDate"), [&] { return QVariant(CDate(value)); }},
            {QStringLiteral("Val"), [&] { return QVariant(Val(value.toString())); }},
        };
        QVariant result;
        QCOMPARE(raisedBy([&] { result = call.value(function)(); }).Number, error);
        if (error == 0)
            QCOMPARE(result, expected);
    }

    void intFix() {
        QCOMPARE(Int(-8.4), -9.0);
        QCOMPARE(Fix(-8.4), -8.0);
        QCOMPARE(Int(8.4), 8.0);
    }

    void dateDiff_data() {
        QTest::addColumn<QString>("interval");
        QTest::addColumn<QDateTime>("from");
        QTest::addColumn<QDateTime>("to");
        QTest::addColumn<qint64>("expected");
        const auto t = [](int h, int m, int s) { return at(5, 3, 2024, h, m, s); };
        QTest::newRow("n ignores seconds") << "n" << t(12, 0, 59) << t(12, 10, 0) << qint64(10);
        QTest::newRow("n one boundary") << "n" << t(12, 0, 59) << t(12, 1, 0) << qint64(1);
        QTest::newRow("n backwards") << "n" << t(12, 10, 0) << t(12, 0, 59) << qint64(-10);
        QTest::newRow("n over midnight") << "n" << t(23, 59, 59) << at(6, 3, 2024) << qint64(1);
        QTest::newRow("s exact") << "s" << t(12, 0, 59) << t(12, 10, 0) << qint64(541);
    }
    void dateDiff() {
        QFETCH(QString, interval);
        QFETCH(QDateTime, from);
        QFETCH(QDateTime, to);
        QFETCH(qint64, expected);
        QCOMPARE(DateDiff(interval, from, to), expected);
    }

    // Typed text is forced to upper case letter by letter: the length must not change.
    void strings_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("upper");
        QTest::addColumn<QString>("trimmed");
        QTest::newRow("accents, sharp s")
            << QString::fromUtf8(" ação ß ") << QString::fromUtf8(" AÇÃO ß ") << QString::fromUtf8("ação ß");
        QTest::newRow("tabs stay") << "\ta\t "
                                   << "\tA\t "
                                   << "\ta\t";
    }
    void strings() {
        QFETCH(QString, text);
        QFETCH(QString, upper);
        QFETCH(QString, trimmed);
        QCOMPARE(UCase(text), upper);
        QCOMPARE(Trim(text), trimmed);
    }
};

ZARVEL_TEST(TestVbText)
#include "tst_vbtext.moc"
