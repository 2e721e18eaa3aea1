#include "support/Support.h"

#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/Connection.h"
#include "platform/Form.h"
#include "platform/Paths.h"
#include "platform/Printers.h"
#include "platform/Process.h"
#include "startup/variaveisGlobais.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QPointer>
#include <QTimer>
#include <memory>

namespace {
QList<int> s_answers;
QList<MsgBoxRecord> s_boxes;
QList<PrintedReport> s_printed;
bool s_ended = false;
int s_endCode = 0;

int answerBox(const MsgBoxRecord& box) {
    s_boxes.append(box);
    if (!s_answers.isEmpty())
        return s_answers.takeFirst();
    return (box.style & 0x7) == vbYesNo ? vbYes : vbOK;
}
} // namespace

TestEnvironment::TestEnvironment() {
    QDir root(m_dir.path());
    root.mkpath(QStringLiteral("program"));
    root.mkpath(QStringLiteral("machine"));
    root.mkpath(QStringLiteral("updater"));
    for (const char* printer : {"PADRAO", "COZINHA", "BAR", "CONFERENCIA"})
        root.mkpath(QStringLiteral("printers/") + QLatin1String(printer));
    usePdfPrinterFolder(printerFolder());
    SetDefaultPrinter(QStringLiteral("PADRAO"));
    s_printed.clear();
    setReportPrintedHook([](const PrintedReport& report) { s_printed.append(report); });
    setProgramFolder(programFolder());
    setMachineFolder(machineFolder());
    setUpdaterFolder(updaterFolder());
    limparVariaveisGlobais();
    setAgora(testMoment());
    setEsperasInstantaneas(true);
    s_answers.clear();
    s_boxes.clear();
    setMsgBoxHook(answerBox);
    clearProcessEnd();
    setEndProcessHandler([](int code) {
        s_ended = true;
        s_endCode = code;
    });
}

TestEnvironment::~TestEnvironment() {
    Form::unloadAll();
    closePooledDatabases(); // before the database files go with the temporary folder
    limparVariaveisGlobais();
    setMsgBoxHook(nullptr);
    setEndProcessHandler(nullptr);
    setAgora(QDateTime());
    setEsperasInstantaneas(false);
    setProgramFolder(QString());
    setMachineFolder(QString());
    setUpdaterFolder(QString());
    setReportPrintedHook(nullptr);
    s_printed.clear();
    usePdfPrinterFolder(QString());
}

QString TestEnvironment::programFolder() const {
    return m_dir.filePath(QStringLiteral("program"));
}
QString TestEnvironment::machineFolder() const {
    return m_dir.filePath(QStringLiteral("machine"));
}
QString TestEnvironment::updaterFolder() const {
    return m_dir.filePath(QStringLiteral("updater"));
}
QString TestEnvironment::scratchPath(const QString& name) const {
    return m_dir.filePath(name);
}

QString TestEnvironment::printerFolder() const {
    return m_dir.filePath(QStringLiteral("printers"));
}

QList<PrintedReport> impressos() {
    return s_printed;
}

void queueAnswer(int answer) {
    s_answers.append(answer);
}
QList<MsgBoxRecord> boxes() {
    return s_boxes;
}
void clearBoxes() {
    s_boxes.clear();
}

bool processEnded() {
    return s_ended;
}
int processEndCode() {
    return s_endCode;
}
void clearProcessEnd() {
    s_ended = false;
    s_endCode = 0;
}

void onNextModalWidget(std::function<bool(QWidget*)> match, std::function<void(QWidget*)> action) {
    auto* timer = new QTimer(qApp);
    timer->setInterval(5);
    auto deadline = std::make_shared<QDeadlineTimer>(10000);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, match, action, deadline] {
        QWidget* modal = QApplication::activeModalWidget();
        // Keys go to the active window: wait for the screen to be it, as a user would.
        if (modal && modal->isVisible() && match(modal) && !modal->isActiveWindow())
            modal->activateWindow();
        if (!modal || !modal->isVisible() || !match(modal) || !modal->isActiveWindow()) {
            if (deadline->hasExpired()) {
                qWarning("onNextModal: the expected modal screen never came up");
                timer->stop();
                timer->deleteLater();
            }
            return;
        }
        timer->stop();
        timer->deleteLater();
        runGuarded([&] { action(modal); });
    });
    timer->start();
}

RuntimeError raisedBy(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error;
    }
    return RuntimeError(0, QString());
}

QDateTime testMoment(int seconds) {
    return QDateTime(QDate(2024, 3, 5), QTime(12, 0, 0)).addSecs(seconds);
}
