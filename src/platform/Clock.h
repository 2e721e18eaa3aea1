#pragma once

#include <QDateTime>

// The present date and time of this terminal. Every stamped date and elapsed time reads it.
QDateTime agora();

// Tests pin the clock; an invalid value gives the real clock back.
void setAgora(const QDateTime& fixed);

// The original's Sleep: blocks the thread. Tests make it instant.
void esperar(int milliseconds);
void setEsperasInstantaneas(bool instant);

// Lets the screens process pending events, as DoEvents did.
void DoEvents();
