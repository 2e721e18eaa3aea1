#include "platform/SendKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

namespace {
void typeKey(int key, const QString& text) {
    QMetaObject::invokeMethod(
        qApp,
        [key, text] {
            QPointer<QWidget> target = QApplication::focusWidget();
            if (!target)
                return;
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
            QApplication::sendEvent(target, &press);
            if (!target)
                return;
            QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
            QApplication::sendEvent(target, &release);
        },
        Qt::QueuedConnection);
}
} // namespace

void SendKeys(const QString& keys) {
    const QString backspace = QStringLiteral("{backspace}");
    for (int i = 0; i < keys.size(); ++i) {
        if (keys.mid(i, backspace.size()).compare(backspace, Qt::CaseInsensitive) == 0) {
            typeKey(Qt::Key_Backspace, QStringLiteral("\b"));
            i += backspace.size() - 1;
            continue;
        }
        const QChar c = keys.at(i);
        const int key = c.isLetter() ? c.toUpper().unicode() : c.unicode();
        typeKey(key, QString(c));
    }
}
