#include "platform/UpDown.h"

#include "platform/VbText.h"

#include <QLineEdit>
#include <algorithm>

UpDown::UpDown(QWidget* parent) : QSpinBox(parent) {
    setFocusPolicy(Qt::NoFocus);
    setFixedWidth(20); // the arrows only: the buddy shows the number
    setSingleStep(1);
}

void UpDown::setBuddyControl(QLineEdit* buddy) {
    m_buddy = buddy;
    connect(this, &QSpinBox::valueChanged, buddy, [buddy](int v) { buddy->setText(QString::number(v)); });
    connect(buddy, &QLineEdit::textChanged, this, [this](const QString& texto) {
        const QSignalBlocker bloqueio(this);
        setValue(IsNumeric(texto) ? int(std::clamp(CDbl(texto), double(minimum()), double(maximum())))
                                  : minimum());
    });
}

int UpDown::numeroDoBuddy() const {
    if (!m_buddy || !IsNumeric(m_buddy->text()))
        return value();
    return int(std::clamp(CDbl(m_buddy->text()), -1e9, 1e9));
}

void UpDown::stepBy(int steps) {
    if (steps == 0)
        return;
    const int proximo = std::clamp(numeroDoBuddy() + steps * singleStep(), minimum(), maximum());
    setValue(proximo);
    // The position may not have moved (the buddy was below the range): the buddy shows it anyway.
    if (m_buddy)
        m_buddy->setText(QString::number(proximo));
}

QAbstractSpinBox::StepEnabled UpDown::stepEnabled() const {
    const int atual = numeroDoBuddy();
    StepEnabled passos = StepNone;
    if (atual < maximum())
        passos |= StepUpEnabled;
    if (atual > minimum())
        passos |= StepDownEnabled;
    return passos;
}
