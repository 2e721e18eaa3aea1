#include "platform/MsgBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

namespace {
std::function<int(const MsgBoxRecord&)>& hook() {
    static std::function<int(const MsgBoxRecord&)> h;
    return h;
}
int s_count = 0;
} // namespace

int msgBoxCount() {
    return s_count;
}

QString programTitle() {
    return QStringLiteral("Zarvel");
}

void setMsgBoxHook(std::function<int(const MsgBoxRecord&)> h) {
    hook() = std::move(h);
}

int MsgBox(const QString& prompt, int style, const QString& title) {
    const QString caption = title.isEmpty() ? programTitle() : title;
    ++s_count;
    if (hook())
        return hook()({prompt, style, caption});

    // Without a window manager nothing hands the keyboard back to the window that asked: it goes
    // where the pointer is. Give it back, so the user goes on typing where the box interrupted.
    const QPointer<QWidget> owner = QApplication::activeWindow();
    const auto ask = [&owner](QMessageBox& box) {
        box.exec();
        if (owner)
            owner->activateWindow();
    };
    QMessageBox box(owner);
    box.setWindowTitle(caption);
    // The original's texts break lines with CR LF; a label wants plain line feeds.
    box.setText(QString(prompt).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    switch (style & 0x70) {
    case vbCritical:
        box.setIcon(QMessageBox::Critical);
        break;
    case vbQuestion:
        box.setIcon(QMessageBox::Question);
        break;
    case vbExclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case vbInformation:
        box.setIcon(QMessageBox::Information);
        break;
    default:
        break;
    }
    if ((style & 0x7) == vbYesNo) {
        QPushButton* yes = box.addButton(QStringLiteral("Sim"), QMessageBox::YesRole);
        QPushButton* no = box.addButton(QStringLiteral("Não"), QMessageBox::NoRole);
        box.setDefaultButton((style & vbDefaultButton2) ? no : yes);
        box.setEscapeButton(no);
        ask(box);
        return box.clickedButton() == yes ? vbYes : vbNo;
    }
    QPushButton* ok = box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    box.setDefaultButton(ok);
    box.setEscapeButton(ok);
    ask(box);
    return vbOK;
}
