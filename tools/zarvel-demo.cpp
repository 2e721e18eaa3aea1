// zarvel-demo <db-file | pg:host:port> <machine-folder>
//
// Makes the demo database of a small bar when it is missing (the back office's tables with its
// products, staff, customers and settings) and points the machine's SERVER.ini at it. On a
// PostgreSQL server the database is Norvik, made by the user sa; a server that has it already is
// left as it is.

#include "backoffice/BackOffice.h"
#include "backoffice/Demo.h"
#include "platform/Connection.h"
#include "platform/MsgBox.h"
#include "platform/Process.h"
#include "platform/Profile.h"
#include "platform/RuntimeError.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
// A half-made database would pass for a good one at the next run.
static void removeDatabase(const QString& file) {
    closePooledDatabases();
    for (const QString& suffix : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm")})
        QFile::remove(file + suffix);
}

// Whether the server has the database of the connection string (and lets its user in).
static bool databaseExists(const QString& connectionString) {
    try {
        Connection connection;
        connection.Open(connectionString);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

int main(int argc, char** argv) {
    // The upgrade asks for the default printer and may report on the start-up screen: it needs a
    // GUI application, never shown, so no display is needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    setMsgBoxHook([](const MsgBoxRecord& box) {
        std::fprintf(stderr, "zarvel-demo: %s\n", qPrintable(box.prompt));
        return vbOK;
    });
    setEndProcessHandler([](int) {}); // endProcess then throws ProcessEnded
    const QStringList args = app.arguments();
    if (args.size() != 3) {
        std::fprintf(stderr, "usage: zarvel-demo <db-file | pg:host:port> <machine-folder>\n");
        return 2;
    }
    const bool server = args.at(1).startsWith(QLatin1String("pg:"), Qt::CaseInsensitive);
    const QString file = server ? args.at(1) : QFileInfo(args.at(1)).absoluteFilePath();
    const QString machine = QFileInfo(args.at(2)).absoluteFilePath();
    const QString connectionString = adoConnectionString(file);
    if (server ? !databaseExists(connectionString) : !QFileInfo::exists(file)) {
        try {
            if (!server)
                QDir().mkpath(QFileInfo(file).absolutePath());
            createDemoDatabase(connectionString);
        } catch (const RuntimeError& error) {
            std::fprintf(stderr, "zarvel-demo: %s\n", qPrintable(describe(error)));
            if (!server)
                removeDatabase(file);
            return 1;
        } catch (const ProcessEnded&) {
            if (!server)
                removeDatabase(file);
            return 1;
        }
        std::printf("Demo database made: %s\n", qPrintable(file));
    }
    QDir().mkpath(machine);
    if (!WritePrivateProfileString(QStringLiteral("SERVIDOR"), QStringLiteral("IPCONEXAO"), file,
                                   machine + QStringLiteral("/SERVER.ini"))) {
        std::fprintf(stderr, "zarvel-demo: cannot write %s/SERVER.ini\n", qPrintable(machine));
        return 1;
    }
    closePooledDatabases();
    return 0;
}
