#include "platform/Clock.h"

#include <QCoreApplication>
#include <QThread>

namespace {
QDateTime s_fixed;
bool s_instant = false;
} // namespace

QDateTime agora() {
    if (s_fixed.isValid())
        return s_fixed;
    QDateTime now = QDateTime::currentDateTime();
    // The original's dates carry whole seconds.
    return now.addMSecs(-now.time().msec());
}

void setAgora(const QDateTime& fixed) {
    s_fixed = fixed;
}

void esperar(int milliseconds) {
    if (!s_instant && milliseconds > 0)
        QThread::msleep(static_cast<unsigned long>(milliseconds));
}

void setEsperasInstantaneas(bool instant) {
    s_instant = instant;
}

void DoEvents() {
    QCoreApplication::processEvents();
}
