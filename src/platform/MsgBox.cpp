#include "platform/MsgBox.h"

#include <QApplication>
#include <QMessageBox>
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

    QMessageBox box(QApplication::activeWindow());
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
        box.exec();
        return box.clickedButton() == yes ? vbYes : vbNo;
    }
    QPushButton* ok = box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    box.setDefaultButton(ok);
    box.setEscapeButton(ok);
    box.exec();
    return vbOK;
}
