#pragma once

#include <QString>
#include <functional>

// Styles and answers of the original's message box.
enum : int {
    vbOKOnly = 0,
    vbYesNo = 4,
    vbCritical = 16,
    vbQuestion = 32,
    vbExclamation = 48,
    vbInformation = 64,
    vbDefaultButton2 = 256,
};
enum : int { vbOK = 1, vbCancel = 2, vbYes = 6, vbNo = 7 };

// The program's title, the caption of a box shown without one.
QString programTitle();

// Shows a modal box and returns the button pressed. No title gives the program's title.
int MsgBox(const QString& prompt, int style = vbOKOnly, const QString& title = QString());

// How many boxes the process has shown so far, answered by a hook or not.
int msgBoxCount();

struct MsgBoxRecord {
    QString prompt;
    int style;
    QString title;
};

// Test seam: while a hook is set, boxes are not shown; the hook sees each one and answers it.
void setMsgBoxHook(std::function<int(const MsgBoxRecord&)> hook);
