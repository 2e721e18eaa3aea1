#include "platform/Process.h"

#include <QFileInfo>
#include <QProcess>

void startAndWait(const QString& commandLine) {
    const QString line = commandLine.trimmed();
    QString program;
    QString rest;
    if (line.startsWith(QLatin1Char('"'))) {
        const int close = line.indexOf(QLatin1Char('"'), 1);
        program = line.mid(1, close < 0 ? -1 : close - 1);
        rest = close < 0 ? QString() : line.mid(close + 1);
    } else {
        // An unquoted path with blanks is found as CreateProcess finds it: the shortest prefix that
        // names a file wins.
        for (int from = 0;;) {
            const int blank = line.indexOf(QLatin1Char(' '), from);
            const QString candidate = blank < 0 ? line : line.left(blank);
            if (QFileInfo(candidate).isFile()) {
                program = candidate;
                rest = blank < 0 ? QString() : line.mid(blank + 1);
                break;
            }
            if (blank < 0)
                break;
            from = blank + 1;
        }
    }
    if (program.isEmpty())
        return;

    QProcess process;
    process.setProgram(program);
    process.setArguments(QProcess::splitCommand(rest));
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    process.start();
    if (process.waitForStarted(-1))
        process.waitForFinished(-1);
}
