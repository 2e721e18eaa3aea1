#pragma once

#include <QObject>

class QTimer;

// The original's timer control. It ticks every Interval milliseconds counted from when it was
// enabled, never lined up with the clock or with the timers of other processes (Qt's default
// coarse timers are, so every terminal of a machine would tick in the same few milliseconds).
// A tick is not delivered again while a handler of the previous one is still running, also when
// that handler runs a nested event loop (a message box, DoEvents).
class Timer : public QObject {
    Q_OBJECT

public:
    Timer(const QString& name, int interval, QObject* parent);

    bool Enabled() const;
    // Enabling a running timer changes nothing; disabling and enabling starts the count anew.
    void setEnabled(bool enabled);
    int Interval() const;
    void setInterval(int milliseconds);

signals:
    // The Timer event.
    void Tick();

private:
    void fire();

    QTimer* m_timer;
    bool m_running = false;
};
