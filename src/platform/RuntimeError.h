#pragma once

#include <QByteArray>
#include <QString>
#include <exception>

// The error numbers the original run time raised, kept so that handlers can compare them.
namespace vbErr {
constexpr int InvalidCall = 5;
constexpr int Overflow = 6;
constexpr int SubscriptOutOfRange = 9;
constexpr int DivisionByZero = 11;
constexpr int TypeMismatch = 13;
constexpr int BadFileName = 52;
constexpr int FileNotFound = 53;
constexpr int PathFileAccess = 75;
constexpr int PathNotFound = 76;
constexpr int ObjectNotSet = 91;
constexpr int InvalidUseOfNull = 94;
constexpr int TextReadOnly = 383;
constexpr int BadArguments = 3001; // a malformed Filter or Find criterion, a foreign bookmark
constexpr int NoCurrentRecord = 3021;
constexpr int NotUpdatable = 3251; // Update on a recordset that is not one table's rows
constexpr int ItemNotFound = 3265;
constexpr int ObjectClosed = 3704;
constexpr int ConnectionNotOpen = 3709;
constexpr int ConnectionFailure = -2147467259; // 0x80004005, the provider's general failure
constexpr int RowNotLocated = -2147217864;     // optimistic lock miss on Update
constexpr int SyntaxError = -2147217900;
constexpr int IntegrityViolation = -2147217873;
constexpr int QueryTimeout = -2147217871; // a statement outlasted its command time-out
constexpr int AutomationException = -2147352567;
} // namespace vbErr

// A run-time error as the original platform raised it: a number and a description.
class RuntimeError : public std::exception {
public:
    RuntimeError(int number, QString description);

    int Number;
    QString Description;

    const char* what() const noexcept override { return m_what.constData(); }

private:
    QByteArray m_what;
};

// The platform's own description of an error number ("Overflow" for 6 ...); empty when unknown.
QString errorDescription(int number);

// Raises a run-time error; an empty description takes the platform's own text.
[[noreturn]] void raiseError(int number, const QString& description = QString());

// "Description : Number", the form every handler of the system shows.
QString describe(const RuntimeError& error);
