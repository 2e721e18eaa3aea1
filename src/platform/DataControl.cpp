#include "platform/DataControl.h"

#include "platform/Connection.h"
#include "platform/MsgBox.h"
#include "platform/RuntimeError.h"

DataControl::DataControl(const QString& name, QObject* parent) : QObject(parent) {
    setObjectName(name);
}

DataControl::~DataControl() = default;

void DataControl::Refresh() {
    try {
        m_recordset = executeStatement(ConnectionString, RecordSource, ConnectionTimeout, CommandTimeout);
    } catch (const RuntimeError& error) {
        // The old copy is gone either way; what the event sees of a provider failure is its low word.
        m_recordset = ::Recordset();
        const int number = error.Number < 0 ? (error.Number & 0xffff) : error.Number;
        bool cancelDisplay = false;
        if (Error)
            Error(number, cancelDisplay);
        if (!cancelDisplay)
            MsgBox(error.Description);
        throw;
    }
}

::Recordset& DataControl::Recordset() {
    return m_recordset;
}
