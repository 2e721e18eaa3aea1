#pragma once

#include "platform/Recordset.h"

#include <QObject>
#include <QString>
#include <functional>

// The original's data control: a named holder of a query. Refresh runs RecordSource on
// ConnectionString and replaces the recordset with a fresh client-side copy.
//
// On a failure Refresh first fires the error event (the number is the low word of the error for a
// provider failure: 16389 for a lost or refused connection); unless the handler cancels the
// display, the control shows the error itself. Then the error is raised to the caller.
class DataControl : public QObject {
    Q_OBJECT

public:
    explicit DataControl(const QString& name, QObject* parent = nullptr);
    ~DataControl() override;

    QString ConnectionString;
    QString RecordSource;
    int ConnectionTimeout = 15;
    int CommandTimeout = 30;

    void Refresh();
    ::Recordset& Recordset();

    // The error event: ErrorNumber as above; set fCancelDisplay to keep the control quiet.
    std::function<void(int ErrorNumber, bool& fCancelDisplay)> Error;

private:
    ::Recordset m_recordset;
};
