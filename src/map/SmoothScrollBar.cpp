#include "map/SmoothScrollBar.h"

#include <QWheelEvent>
#include <algorithm>

SmoothScrollBar::SmoothScrollBar(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("scrollBar"));
}

void SmoothScrollBar::setValue(int value) {
    value = std::clamp(value, m_min, std::max(m_min, m_max));
    if (value == m_value)
        return;
    m_value = value;
    emit Change();
}

void SmoothScrollBar::setMin(int value) {
    m_min = value;
    setValue(m_value);
}

void SmoothScrollBar::setMax(int value) {
    m_max = value;
    setValue(m_value);
}

void SmoothScrollBar::attachWindow(QWidget* window) {
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (window)
        window->installEventFilter(this);
}

bool SmoothScrollBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_window || event->type() != QEvent::Wheel)
        return false;
    m_wheelRest += static_cast<QWheelEvent*>(event)->angleDelta().y();
    const int notches = m_wheelRest / 120;
    m_wheelRest -= notches * 120;
    // A turn away from the user scrolls up, towards lower values.
    if (notches != 0)
        setValue(m_value - notches * WheelChange);
    return true;
}
