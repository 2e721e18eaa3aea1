#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>

// The original's up-down control tied to a text box, its buddy: only the arrows show, and the
// number lives in the buddy's text. Each arrow reads the buddy's number as it stands and writes the
// next one back, held within the range; a number the code puts into the buddy moves the control's
// own position too, held within the range, while the buddy keeps the text it was given. So a
// buddy that shows a number outside the range keeps it until an arrow is pressed.
class UpDown : public QSpinBox {
    Q_OBJECT

public:
    explicit UpDown(QWidget* parent = nullptr);

    // Ties the control to its buddy and shows the position in it from now on.
    void setBuddyControl(QLineEdit* buddy);
    QLineEdit* buddyControl() const { return m_buddy; }

    void stepBy(int steps) override;

protected:
    StepEnabled stepEnabled() const override;

private:
    // The buddy's number, or the control's own position when the buddy holds none.
    int numeroDoBuddy() const;

    QPointer<QLineEdit> m_buddy;
};
