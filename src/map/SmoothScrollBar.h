#pragma once

#include <QPointer>
#include <QWidget>

// The map's wheel scrolling: a hidden position holder that, once attached to a screen, turns the
// wheel over that screen into steps of WheelChange within Min and Max, and fires Change whenever
// Value moves.
class SmoothScrollBar : public QWidget {
    Q_OBJECT

public:
    explicit SmoothScrollBar(QWidget* parent = nullptr);

    int Value() const { return m_value; }
    void setValue(int value);
    int Min() const { return m_min; }
    void setMin(int value);
    int Max() const { return m_max; }
    void setMax(int value);
    int WheelChange = 10;

    // The wheel over this window (and over its controls that don't use it) moves the value.
    void attachWindow(QWidget* window);

signals:
    void Change();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int m_value = 0;
    int m_min = 0;
    int m_max = 0;
    int m_wheelRest = 0; // the part of a notch of a fine-grained wheel not yet turned into a step
    QPointer<QWidget> m_window;
};
