#include "platform/RuntimeError.h"

#include <QHash>

RuntimeError::RuntimeError(int number, QString description)
    : Number(number), Description(std::move(description)),
      m_what(QStringLiteral("%1 : %2").arg(Description).arg(Number).toUtf8()) {}

QString errorDescription(int number) {
    static const QHash<int, QString> texts = {
        {vbErr::InvalidCall, QStringLiteral("Invalid procedure call or argument")},
        {vbErr::Overflow, QStringLiteral("Overflow")},
        {vbErr::SubscriptOutOfRange, QStringLiteral("Subscript out of range")},
        {vbErr::DivisionByZero, QStringLiteral("Division by zero")},
        {vbErr::TypeMismatch, QStringLiteral("Type mismatch")},
        {vbErr::BadFileName, QStringLiteral("Bad file name or number")},
        {vbErr::FileNotFound, QStringLiteral("File not found")},
        {vbErr::PathFileAccess, QStringLiteral("Path/File access error")},
        {vbErr::PathNotFound, QStringLiteral("Path not found")},
        {vbErr::ObjectNotSet, QStringLiteral("Object variable or With block variable not set")},
        {vbErr::InvalidUseOfNull, QStringLiteral("Invalid use of Null")},
        {vbErr::TextReadOnly, QStringLiteral("'Text' property is read-only")},
        {vbErr::BadArguments,
         QStringLiteral("Arguments are of the wrong type, are out of acceptable range, or are "
                        "in conflict with one another.")},
        {vbErr::NotUpdatable,
         QStringLiteral("Current Recordset does not support updating. This may be a limitation "
                        "of the provider, or of the selected locktype.")},
        {vbErr::NoCurrentRecord,
         QStringLiteral("Either BOF or EOF is True, or the current record has been deleted. Requested "
                        "operation requires a current record.")},
        {vbErr::ItemNotFound, QStringLiteral("Item cannot be found in the collection corresponding to the "
                                             "requested name or ordinal.")},
        {vbErr::ObjectClosed, QStringLiteral("Operation is not allowed when the object is closed.")},
        {vbErr::ConnectionNotOpen,
         QStringLiteral("The connection cannot be used to perform this operation. It is "
                        "either closed or invalid in this context.")},
        {vbErr::QueryTimeout, QStringLiteral("Query timeout expired")},
        {vbErr::RowNotLocated, QStringLiteral("Row cannot be located for updating. Some values may have "
                                              "been changed since it was last read.")},
        {vbErr::AutomationException, QStringLiteral("Exception occurred.")},
    };
    return texts.value(number);
}

void raiseError(int number, const QString& description) {
    throw RuntimeError(number, description.isEmpty() ? errorDescription(number) : description);
}

QString describe(const RuntimeError& error) {
    return error.Description + QStringLiteral(" : ") + QString::number(error.Number);
}
