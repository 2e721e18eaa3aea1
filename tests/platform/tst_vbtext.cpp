#include "platform/RuntimeError.h"
#include "platform/VbText.h"
#include "support/TestMain.h"

#include <QTest>
#include <functional>

namespace {
// The error number a call raises, 0 when it raises none.
int errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& e) {
        return e.Number;
    }
    return 0;
}

QDateTime at(int day, int month, int year, int h = 0, int m = 0, int s = 0) {
    return QDateTime(QDate(year, month, day), QTime(h, m, s));
}

const QVariant Null;
} // namespace

class TestVbText : public QObject {
    Q_OBJECT

private slots:
    void format_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("expected");
        QTest::newRow("money") << QVariant(17) << "#0.00"
                               << "17,00";
        QTest::newRow("no decimals rounds") << QVariant(1.7) << "#0"
                                            << "2";
        QTest::newRow("carry through every place") << QVariant(9.9999999) << "#0.000000"
                                                   << "10,000000";
        QTest::newRow("table number") << QVariant(7) << "0000"
                                      << "0007";
        QTest::newRow("table number of a fraction") << QVariant(12.5) << "0000"
                                                    << "0013";
        QTest::newRow("integer never cut") << QVariant(12345) << "0000"
                                           << "12345";
        QTest::newRow("two places") << QVariant(5) << "00"
                                    << "05";
        QTest::newRow("two places, three digits") << QVariant(123) << "00"
                                                  << "123";
        QTest::newRow("product code") << QVariant(123) << "00000000000000"
                                      << "00000000000123";
        QTest::newRow("no grouping without comma") << QVariant(1234.5) << "#0.00"
                                                   << "1234,50";
        QTest::newRow("2.675 on its decimal digits") << QVariant(2.675) << "#0.00"
                                                     << "2,68";
        QTest::newRow("0.125 half away from zero") << QVariant(0.125) << "#0.00"
                                                   << "0,13";
        QTest::newRow("negative half") << QVariant(-0.5) << "0"
                                       << "-1";
        QTest::newRow("positive half") << QVariant(2.5) << "0"
                                       << "3";
        QTest::newRow("9.995 carries") << QVariant(9.995) << "0.00"
                                       << "10,00";
        QTest::newRow("1.005 on its decimal digits") << QVariant(1.005) << "0.00"
                                                     << "1,01";
        QTest::newRow("negative") << QVariant(-1.57) << "0.00"
                                  << "-1,57";
        QTest::newRow("negative rounding to zero") << QVariant(-0.001) << "0.00"
                                                   << "-0,00";
        QTest::newRow("hours") << QVariant(5) << "#00h"
                               << "05h";
        QTest::newRow("hours beyond two digits") << QVariant(130) << "#00h"
                                                 << "130h";
        QTest::newRow("negative hours") << QVariant(-1.0) << "#00h"
                                        << "-01h";
        QTest::newRow("minutes") << QVariant(7) << "00m"
                                 << "07m";
        QTest::newRow("persons") << QVariant(3) << "#00"
                                 << "03";
        QTest::newRow("quantity") << QVariant(1.5) << "#0.000"
                                  << "1,500";
        QTest::newRow("grouping") << QVariant(1234567.891) << "#,##0.00"
                                  << "1.234.567,89";
        QTest::newRow("grouping small") << QVariant(12) << "#,##0.00"
                                        << "12,00";
        QTest::newRow("no leading zero") << QVariant(0.5) << "#.00"
                                         << ",50";
        QTest::newRow("optional decimals") << QVariant(1.5) << "0.##"
                                           << "1,5";
        QTest::newRow("later point literal") << QVariant(1.25) << "0.0.0"
                                             << "1,2.5";
        QTest::newRow("literals between digits") << QVariant(1234567) << "000-0000"
                                                 << "123-4567";
        QTest::newRow("quoted and escaped") << QVariant(5) << "\"Mesa \"0\\#"
                                            << "Mesa 5#";
        QTest::newRow("percent") << QVariant(0.125) << "0%"
                                 << "13%";
        QTest::newRow("thousands scale") << QVariant(1234567) << "#,##0,"
                                         << "1.235";
        QTest::newRow("negative section") << QVariant(-5) << "0;(0)"
                                          << "(5)";
        QTest::newRow("zero section") << QVariant(0) << "0;(0);\"nada\""
                                      << "nada";
        QTest::newRow("long integer exact") << QVariant(qlonglong(12345678901234567)) << "0"
                                            << "12345678901234567";
        QTest::newRow("double keeps 15 digits") << QVariant(12345678901234567.0) << "0"
                                                << "12345678901234600";
        QTest::newRow("text read with the locale") << QVariant("1.234,5") << "#0.000"
                                                   << "1234,500";
        QTest::newRow("text point is grouping") << QVariant("1234.5") << "#0.000"
                                                << "12345,000";
        QTest::newRow("text from the entry field") << QVariant("2,5") << "#0.000"
                                                   << "2,500";
        QTest::newRow("unreadable text unchanged") << QVariant("abc") << "#0.00"
                                                   << "abc";
        QTest::newRow("empty text unchanged") << QVariant("") << "0000"
                                              << "";
        QTest::newRow("empty pattern") << QVariant(33.33) << ""
                                       << "33,33";
        QTest::newRow("Null") << Null << "0.00"
                              << "";
        QTest::newRow("log file name") << QVariant(at(15, 1, 2024, 9, 5, 7)) << "ddMMyyyy"
                                       << "15012024";
        QTest::newRow("short date") << QVariant(at(5, 3, 2024, 14, 7, 9)) << "dd/MM/yyyy"
                                    << "05/03/2024";
        QTest::newRow("time") << QVariant(at(5, 3, 2024, 14, 7, 9)) << "hh:mm:ss"
                              << "14:07:09";
        QTest::newRow("minutes as n") << QVariant(at(5, 3, 2024, 14, 7, 9)) << "dd/mm/yyyy hh:nn"
                                      << "05/03/2024 14:07";
        QTest::newRow("short forms") << QVariant(at(5, 3, 2024)) << "d/m/yy"
                                     << "5/3/24";
        QTest::newRow("names") << QVariant(at(5, 3, 2024)) << "dddd, d \"de\" mmmm"
                               << "terça-feira, 5 de março";
        QTest::newRow("twelve hours") << QVariant(at(5, 3, 2024, 14, 7)) << "hh:mm AM/PM"
                                      << "02:07 PM";
        QTest::newRow("a QDate") << QVariant(QDate(2024, 3, 5)) << "yyyy-mm-dd"
                                 << "2024-03-05";
        QTest::newRow("date text") << QVariant("05/03/2024 14:07:09") << "yyyymmdd hhnn"
                                   << "20240305 1407";
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
        QTest::addColumn<int>("leading");
        QTest::addColumn<int>("parens");
        QTest::addColumn<int>("group");
        QTest::addColumn<bool>("currency");
        QTest::addColumn<QString>("expected");
        QTest::newRow("half up") << QVariant(2.5) << 0 << -2 << -2 << -2 << false << "3";
        QTest::newRow("0.125") << QVariant(0.125) << 2 << -2 << -2 << -2 << false << "0,13";
        QTest::newRow("grouped") << QVariant(1234.5) << 2 << -2 << -2 << -2 << false << "1.234,50";
        QTest::newRow("leading zero") << QVariant(0.5) << 2 << -2 << -2 << -2 << false << "0,50";
        QTest::newRow("negative") << QVariant(-3.2) << 2 << -2 << -2 << -2 << false << "-3,20";
        QTest::newRow("default digits") << QVariant(7) << -1 << -2 << -2 << -2 << false << "7,00";
        QTest::newRow("no leading digit") << QVariant(0.5) << 2 << 0 << -2 << -2 << false << ",50";
        QTest::newRow("no grouping") << QVariant(1234.5) << 2 << -2 << -2 << 0 << false << "1234,50";
        QTest::newRow("parentheses") << QVariant(-3.2) << 2 << -2 << -1 << -2 << false << "(3,20)";
        QTest::newRow("zero keeps no sign") << QVariant(-0.001) << 2 << -1 << -2 << -2 << false << "0,00";
        QTest::newRow("text with the locale")
            << QVariant("10,005") << 3 << -1 << -2 << -2 << false << "10,005";
        QTest::newRow("text regrouped")
            << QVariant("12345,678") << 3 << -1 << -2 << -2 << false << "12.345,678";
        QTest::newRow("millions") << QVariant(1234567.5) << 2 << -1 << -2 << -2 << false << "1.234.567,50";
        QTest::newRow("currency") << QVariant(1234.5) << 2 << -2 << -2 << -2 << true << "R$ 1.234,50";
        QTest::newRow("currency below one") << QVariant(0.5) << 2 << -2 << -2 << -2 << true << "R$ 0,50";
        QTest::newRow("negative currency") << QVariant(-3.2) << 2 << -2 << -2 << -2 << true << "-R$ 3,20";
        QTest::newRow("currency parentheses") << QVariant(-3.2) << 2 << -2 << -1 << -2 << true << "(R$ 3,20)";
    }
    void formatNumber() {
        QFETCH(QVariant, value);
        QFETCH(int, digits);
        QFETCH(int, leading);
        QFETCH(int, parens);
        QFETCH(int, group);
        QFETCH(bool, currency);
        QFETCH(QString, expected);
        QCOMPARE(currency ? FormatCurrency(value, digits, leading, parens, group)
                          : FormatNumber(value, digits, leading, parens, group),
                 expected);
    }

    void formatNumberOfUnreadableText() {
        QCOMPARE(errorOf([] { FormatNumber(QStringLiteral("abc"), 2); }), vbErr::TypeMismatch);
    }

    void isNumeric_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("expected");
        for (const char* text : {" 12 ", "-5", "5-", "+5", "(5)", "1.234,56", "1,", ",5", "R$ 1.234,50",
                                 "-R$ 3,20", "1e3", "1E-2", "&H1F", "&O17", "1.2.3", "12.34", "\t7\t"})
            QTest::newRow(text) << QVariant(QString::fromUtf8(text)) << true;
        for (const char* text : {",", ".", "", "-", "1e", "12abc", "1 000", "(5", "5)", "--5", "1,2,3", "&H",
                                 "&H1G", "&H 1F", "abc"})
            QTest::newRow(text) << QVariant(QString::fromUtf8(text)) << false;
        QTest::newRow("a number") << QVariant(5.5) << true;
        QTest::newRow("a long") << QVariant(qlonglong(3)) << true;
        QTest::newRow("Null") << Null << false;
        QTest::newRow("a date") << QVariant(at(5, 3, 2024)) << false;
    }
    void isNumeric() {
        QFETCH(QVariant, value);
        QFETCH(bool, expected);
        QCOMPARE(IsNumeric(value), expected);
    }

    void cdbl_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<double>("expected");
        QTest::addColumn<int>("error");
        QTest::newRow("locale decimal") << QVariant("1.234,5") << 1234.5 << 0;
        QTest::newRow("point is grouping") << QVariant("1234.5") << 12345.0 << 0;
        QTest::newRow("12.34") << QVariant("12.34") << 1234.0 << 0;
        QTest::newRow("blanks") << QVariant(" 12 ") << 12.0 << 0;
        QTest::newRow("trailing sign") << QVariant("5-") << -5.0 << 0;
        QTest::newRow("parentheses") << QVariant("(5)") << -5.0 << 0;
        QTest::newRow("money") << QVariant("R$ 1.234,50") << 1234.5 << 0;
        QTest::newRow("negative money") << QVariant("-R$ 3,20") << -3.2 << 0;
        QTest::newRow("exponent") << QVariant("1e3") << 1000.0 << 0;
        QTest::newRow("hex") << QVariant("&H1F") << 31.0 << 0;
        QTest::newRow("groups anywhere") << QVariant("1.2.3") << 123.0 << 0;
        QTest::newRow("leading comma") << QVariant(",5") << 0.5 << 0;
        QTest::newRow("a double") << QVariant(2.25) << 2.25 << 0;
        QTest::newRow("a long") << QVariant(qlonglong(-7)) << -7.0 << 0;
        QTest::newRow("True") << QVariant(true) << -1.0 << 0;
        QTest::newRow("a date") << QVariant(at(31, 12, 1899, 12)) << 1.5 << 0;
        QTest::newRow("empty") << QVariant("") << 0.0 << vbErr::TypeMismatch;
        QTest::newRow("letters") << QVariant("abc") << 0.0 << vbErr::TypeMismatch;
        QTest::newRow("Null") << Null << 0.0 << vbErr::InvalidUseOfNull;
    }
    void cdbl() {
        QFETCH(QVariant, value);
        QFETCH(double, expected);
        QFETCH(int, error);
        double result = 0;
        QCOMPARE(errorOf([&] { result = CDbl(value); }), error);
        if (error == 0)
            QCOMPARE(result, expected);
    }

    void cint_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("expected");
        QTest::addColumn<int>("error");
        QTest::newRow("0.5") << QVariant(0.5) << 0 << 0;
        QTest::newRow("1.5") << QVariant(1.5) << 2 << 0;
        QTest::newRow("2.5") << QVariant(2.5) << 2 << 0;
        QTest::newRow("-2.5") << QVariant(-2.5) << -2 << 0;
        QTest::newRow("2.6") << QVariant(2.6) << 3 << 0;
        QTest::newRow("-2.6") << QVariant(-2.6) << -3 << 0;
        QTest::newRow("top") << QVariant(32767.4) << 32767 << 0;
        QTest::newRow("32767.5") << QVariant(32767.5) << 0 << vbErr::Overflow;
        QTest::newRow("bottom half to even") << QVariant(-32768.5) << -32768 << 0;
        QTest::newRow("below bottom") << QVariant(-32769) << 0 << vbErr::Overflow;
        QTest::newRow("long in range") << QVariant(qlonglong(3)) << 3 << 0;
        QTest::newRow("long out of range") << QVariant(qlonglong(40000)) << 0 << vbErr::Overflow;
        QTest::newRow("text 12.34") << QVariant("12.34") << 1234 << 0;
        QTest::newRow("text half") << QVariant("2,5") << 2 << 0;
        QTest::newRow("text overflow") << QVariant("99999") << 0 << vbErr::Overflow;
        QTest::newRow("True") << QVariant(true) << -1 << 0;
        QTest::newRow("letters") << QVariant("abc") << 0 << vbErr::TypeMismatch;
        QTest::newRow("empty") << QVariant("") << 0 << vbErr::TypeMismatch;
        QTest::newRow("Null") << Null << 0 << vbErr::InvalidUseOfNull;
    }
    void cint() {
        QFETCH(QVariant, value);
        QFETCH(int, expected);
        QFETCH(int, error);
        int result = 0;
        QCOMPARE(errorOf([&] { result = CInt(value); }), error);
        QCOMPARE(result, expected);
    }

    void clng_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("expected");
        QTest::addColumn<int>("error");
        QTest::newRow("2.5") << QVariant(2.5) << 2 << 0;
        QTest::newRow("3.5") << QVariant(3.5) << 4 << 0;
        QTest::newRow("beyond an Integer") << QVariant(40000.0) << 40000 << 0;
        QTest::newRow("text") << QVariant("1.000.000") << 1000000 << 0;
        QTest::newRow("beyond a Long") << QVariant(3e9) << 0 << vbErr::Overflow;
        QTest::newRow("Null") << Null << 0 << vbErr::InvalidUseOfNull;
    }
    void clng() {
        QFETCH(QVariant, value);
        QFETCH(int, expected);
        QFETCH(int, error);
        int result = 0;
        QCOMPARE(errorOf([&] { result = CLng(value); }), error);
        QCOMPARE(result, expected);
    }

    void cbool_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("expected");
        QTest::addColumn<int>("error");
        QTest::newRow("zero") << QVariant(0) << false << 0;
        QTest::newRow("five") << QVariant(5) << true << 0;
        QTest::newRow("a fraction") << QVariant(-0.5) << true << 0;
        QTest::newRow("true") << QVariant(true) << true << 0;
        QTest::newRow("false") << QVariant(false) << false << 0;
        QTest::newRow("True") << QVariant("True") << true << 0;
        QTest::newRow("false text") << QVariant("false") << false << 0;
        QTest::newRow("Verdadeiro") << QVariant("Verdadeiro") << true << 0;
        QTest::newRow("Falso") << QVariant("Falso") << false << 0;
        QTest::newRow("text zero") << QVariant("0") << false << 0;
        QTest::newRow("text number") << QVariant("1,5") << true << 0;
        QTest::newRow("letters") << QVariant("sim") << false << vbErr::TypeMismatch;
        QTest::newRow("Null") << Null << false << vbErr::InvalidUseOfNull;
    }
    void cbool() {
        QFETCH(QVariant, value);
        QFETCH(bool, expected);
        QFETCH(int, error);
        bool result = false;
        QCOMPARE(errorOf([&] { result = CBool(value); }), error);
        QCOMPARE(result, expected);
    }

    void cstr_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("expected");
        QTest::newRow("33.33") << QVariant(33.33) << "33,33";
        QTest::newRow("a third") << QVariant(1.0 / 3) << "0,333333333333333";
        QTest::newRow("two thirds") << QVariant(2.0 / 3) << "0,666666666666667";
        QTest::newRow("0.1 + 0.2") << QVariant(0.1 + 0.2) << "0,3";
        QTest::newRow("whole double") << QVariant(100.0) << "100";
        QTest::newRow("negative") << QVariant(-1.5) << "-1,5";
        QTest::newRow("zero") << QVariant(0.0) << "0";
        QTest::newRow("small") << QVariant(0.0001) << "0,0001";
        QTest::newRow("tiny") << QVariant(0.00001) << "1E-05";
        QTest::newRow("huge") << QVariant(1e15) << "1E+15";
        QTest::newRow("largest plain") << QVariant(999999999999999.0) << "999999999999999";
        QTest::newRow("an int") << QVariant(42) << "42";
        QTest::newRow("a long") << QVariant(qlonglong(-7)) << "-7";
        QTest::newRow("True") << QVariant(true) << "True";
        QTest::newRow("False") << QVariant(false) << "False";
        QTest::newRow("date and time") << QVariant(at(5, 3, 2024, 14, 7, 9)) << "05/03/2024 14:07:09";
        QTest::newRow("midnight") << QVariant(at(5, 3, 2024)) << "05/03/2024";
        QTest::newRow("a QDate") << QVariant(QDate(2024, 3, 5)) << "05/03/2024";
        QTest::newRow("text") << QVariant(" a ") << " a ";
    }
    void cstr() {
        QFETCH(QVariant, value);
        QFETCH(QString, expected);
        QCOMPARE(CStr(value), expected);
    }

    void cstrOfNull() {
        QCOMPARE(errorOf([] { CStr(QVariant()); }), vbErr::InvalidUseOfNull);
    }

    void cdate_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QDateTime>("expected");
        QTest::addColumn<int>("error");
        const QDateTime moment = at(5, 3, 2024, 14, 7, 9);
        QTest::newRow("short date") << QVariant("05/03/2024") << at(5, 3, 2024) << 0;
        QTest::newRow("date and time") << QVariant("05/03/2024 14:07:09") << moment << 0;
        QTest::newRow("single digits") << QVariant("5/3/24") << at(5, 3, 2024) << 0;
        QTest::newRow("ISO with space") << QVariant("2024-03-05 14:07:09") << moment << 0;
        QTest::newRow("ISO with T") << QVariant("2024-03-05T14:07:09") << moment << 0;
        QTest::newRow("ISO with fraction") << QVariant("2024-03-05 14:07:09.000") << moment << 0;
        QTest::newRow("ISO date") << QVariant("2024-03-05") << at(5, 3, 2024) << 0;
        QTest::newRow("a QDateTime") << QVariant(moment) << moment << 0;
        QTest::newRow("a QDate") << QVariant(QDate(2024, 3, 5)) << at(5, 3, 2024) << 0;
        QTest::newRow("a day number") << QVariant(1.5) << at(31, 12, 1899, 12) << 0;
        QTest::newRow("no such day") << QVariant("31/02/2024") << QDateTime() << vbErr::TypeMismatch;
        QTest::newRow("letters") << QVariant("ontem") << QDateTime() << vbErr::TypeMismatch;
        QTest::newRow("Null") << Null << QDateTime() << vbErr::InvalidUseOfNull;
    }
    void cdate() {
        QFETCH(QVariant, value);
        QFETCH(QDateTime, expected);
        QFETCH(int, error);
        QDateTime result;
        QCOMPARE(errorOf([&] { result = CDate(value); }), error);
        QCOMPARE(result, expected);
    }

    void val_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("expected");
        QTest::newRow("blanks ignored") << " 1 2 3" << 123.0;
        QTest::newRow("comma stops") << "1,5" << 1.0;
        QTest::newRow("point is decimal") << "1.5" << 1.5;
        QTest::newRow("stops at letters") << "12abc" << 12.0;
        QTest::newRow("exponent") << "-1.5e2" << -150.0;
        QTest::newRow("exponent without digits") << "1e" << 1.0;
        QTest::newRow("empty") << "" << 0.0;
        QTest::newRow("letters") << "abc" << 0.0;
        QTest::newRow("hex") << "&H1F" << 31.0;
        QTest::newRow("hex Integer") << "&HFFFF" << -1.0;
        QTest::newRow("hex stops") << "&H1G" << 1.0;
        QTest::newRow("octal") << "&O17" << 15.0;
    }
    void val() {
        QFETCH(QString, text);
        QFETCH(double, expected);
        QCOMPARE(Val(text), expected);
    }

    void intFix_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("intResult");
        QTest::addColumn<double>("fixResult");
        QTest::newRow("-8.4") << -8.4 << -9.0 << -8.0;
        QTest::newRow("8.4") << 8.4 << 8.0 << 8.0;
        QTest::newRow("-0.5") << -0.5 << -1.0 << 0.0;
        QTest::newRow("whole") << -8.0 << -8.0 << -8.0;
    }
    void intFix() {
        QFETCH(double, value);
        QFETCH(double, intResult);
        QFETCH(double, fixResult);
        QCOMPARE(Int(value), intResult);
        QCOMPARE(Fix(value), fixResult);
    }

    void dateDiff_data() {
        QTest::addColumn<QString>("interval");
        QTest::addColumn<QDateTime>("from");
        QTest::addColumn<QDateTime>("to");
        QTest::addColumn<qint64>("expected");
        const auto t = [](int h, int m, int s) { return at(5, 3, 2024, h, m, s); };
        QTest::newRow("n ignores seconds") << "n" << t(12, 0, 59) << t(12, 10, 0) << qint64(10);
        QTest::newRow("n one boundary") << "n" << t(12, 0, 59) << t(12, 1, 0) << qint64(1);
        QTest::newRow("n none") << "n" << t(12, 0, 0) << t(12, 0, 59) << qint64(0);
        QTest::newRow("n backwards") << "n" << t(12, 10, 0) << t(12, 0, 59) << qint64(-10);
        QTest::newRow("N upper case") << "N" << t(12, 0, 59) << t(12, 10, 0) << qint64(10);
        QTest::newRow("s exact") << "s" << t(12, 0, 59) << t(12, 10, 0) << qint64(541);
        QTest::newRow("s backwards") << "s" << t(12, 10, 0) << t(12, 0, 59) << qint64(-541);
        QTest::newRow("h boundary") << "h" << t(12, 59, 59) << t(13, 0, 0) << qint64(1);
        QTest::newRow("h none") << "h" << t(12, 0, 0) << t(12, 59, 59) << qint64(0);
        QTest::newRow("d midnight") << "d" << t(23, 59, 59) << at(6, 3, 2024) << qint64(1);
        QTest::newRow("d same day") << "d" << t(0, 0, 0) << t(23, 59, 59) << qint64(0);
        QTest::newRow("d backwards") << "d" << at(6, 3, 2024) << t(23, 59, 59) << qint64(-1);
        QTest::newRow("m") << "m" << at(31, 1, 2024) << at(1, 2, 2024) << qint64(1);
        QTest::newRow("yyyy") << "yyyy" << at(31, 12, 2023) << at(1, 1, 2024) << qint64(1);
    }
    void dateDiff() {
        QFETCH(QString, interval);
        QFETCH(QDateTime, from);
        QFETCH(QDateTime, to);
        QFETCH(qint64, expected);
        QCOMPARE(DateDiff(interval, from, to), expected);
    }

    void dateDiffUnknownInterval() {
        QCOMPARE(errorOf([] { DateDiff(QStringLiteral("x"), at(1, 1, 2024), at(2, 1, 2024)); }),
                 vbErr::InvalidCall);
    }

    void strings_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("upper");
        QTest::addColumn<QString>("trimmed");
        QTest::newRow("accents") << QString::fromUtf8("ação é") << QString::fromUtf8("AÇÃO É")
                                 << QString::fromUtf8("ação é");
        QTest::newRow("spaces") << "  a b  "
                                << "  A B  "
                                << "a b";
        QTest::newRow("tabs stay") << "\ta\t "
                                   << "\tA\t "
                                   << "\ta\t";
        QTest::newRow("line ends stay") << " x\r\n"
                                        << " X\r\n"
                                        << "x\r\n";
        QTest::newRow("no-break space stays")
            << QString::fromUtf8("\u00a0x ") << QString::fromUtf8("\u00a0X ") << QString::fromUtf8("\u00a0x");
        QTest::newRow("sharp s keeps its length")
            << QString::fromUtf8("rua ß") << QString::fromUtf8("RUA ß") << QString::fromUtf8("rua ß");
    }
    void strings() {
        QFETCH(QString, text);
        QFETCH(QString, upper);
        QFETCH(QString, trimmed);
        QCOMPARE(UCase(text), upper);
        QCOMPARE(Trim(text), trimmed);
    }

    void separators() {
        QCOMPARE(decimalSeparator(), QChar(u','));
        QCOMPARE(groupSeparator(), QChar(u'.'));
    }
};

ZARVEL_TEST(TestVbText)
#include "tst_vbtext.moc"
