#include "platform/Timer.h"

#include <QTimer>

Timer::Timer(const QString& name, int interval, QObject* parent)
    : QObject(parent), m_timer(new QTimer(this)) {
    setObjectName(name);
    m_timer->setTimerType(Qt::PreciseTimer);
    m_timer->setInterval(interval);
    connect(m_timer, &QTimer::timeout, this, &Timer::fire);
}

bool Timer::Enabled() const {
    return m_timer->isActive();
}

void Timer::setEnabled(bool enabled) {
    if (enabled == m_timer->isActive())
        return;
    if (enabled)
        m_timer->start();
    else
        m_timer->stop();
}

int Timer::Interval() const {
    return m_timer->interval();
}

void Timer::setInterval(int milliseconds) {
    m_timer->setInterval(milliseconds);
}

void Timer::fire() {
    if (m_running)
        return;
    m_running = true;
    struct Fim {
        bool& running;
        ~Fim() { running = false; }
    } fim{m_running};
    emit Tick();
}
