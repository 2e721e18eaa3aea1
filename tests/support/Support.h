#pragma once

#include "platform/DataReport.h"
#include "platform/MsgBox.h"
#include "platform/RuntimeError.h"

#include <QApplication>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <QWidget>
#include <functional>

// The world of one test: temporary program, machine and updater folders, the run-time state
// reset, the clock pinned, waits instant, message boxes recorded and answered from a queue, the
// process end observed instead of taken, and a PDF printer folder with the printers PADRAO (the
// default), COZINHA, BAR and CONFERENCIA, where every report printed is recorded. Make one in init() (or at
// the top of a test); its destructor drops every screen and puts the real services back.
class TestEnvironment {
public:
    TestEnvironment();
    ~TestEnvironment();

    QString programFolder() const;
    QString machineFolder() const;
    QString updaterFolder() const;
    // A path inside the temporary area that doesn't exist yet.
    QString scratchPath(const QString& name) const;
    QString printerFolder() const;

private:
    QTemporaryDir m_dir;
};

// Message boxes: answers are taken in order; with the queue empty a box is answered with OK, or
// Yes for a Yes/No box.
void queueAnswer(int answer);
QList<MsgBoxRecord> boxes();
void clearBoxes();

// The reports printed since the test began, in order.
QList<PrintedReport> impressos();

// The process end: whether it was asked for, and with which code.
bool processEnded();
int processEndCode();
void clearProcessEnd();

// Runs action on the next modal screen once it is up (waits for QApplication::activeModalWidget()
// to be a T), from the event loop, so that the test can call the routine that shows it.
void onNextModalWidget(std::function<bool(QWidget*)> match, std::function<void(QWidget*)> action);

template <class T> void onNextModal(std::function<void(T*)> action) {
    onNextModalWidget([](QWidget* w) { return qobject_cast<T*>(w) != nullptr; },
                      [action](QWidget* w) { action(qobject_cast<T*>(w)); });
}

// The run-time error a call raises; number 0 when it raises none.
RuntimeError raisedBy(const std::function<void()>& call);

// A fixed moment for tests: 2024-03-05 12:00:00 plus the given seconds.
QDateTime testMoment(int seconds = 0);
