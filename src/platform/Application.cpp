#include "platform/Application.h"

#include "platform/Form.h"
#include "platform/MsgBox.h"
#include "platform/Process.h"
#include "platform/RuntimeError.h"

#include <QFont>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <ctime>
#include <memory>

void pinLocale() {
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
}

// The screens are drawn in Segoe UI, which Linux doesn't have; its default fallback is a good deal
// wider and no longer fits the design's boxes. Liberation Sans keeps Arial's metrics, close to it.
// The tickets and the slip are laid out in Courier New to the character: Liberation Mono has its
// metrics exactly, so their columns and rules fit their boxes as they were drawn.
void pinFonts() {
    for (const QString& family : {QStringLiteral("Segoe UI"), QStringLiteral("Segoe UI Semibold")})
        QFont::insertSubstitutions(family, {QStringLiteral("Liberation Sans"), QStringLiteral("Arial")});
    for (const QString& family : {QStringLiteral("Courier New"), QStringLiteral("Courier")})
        QFont::insertSubstitutions(family, {QStringLiteral("Liberation Mono"), QStringLiteral("Cousine")});
}

// Without TZ the C library looks at /etc/localtime again on every local-time conversion, and
// every date read from the store is one: a file system call per date of every row. Naming the same
// zone file once makes it read once.
void pinTimeZone() {
    if (qEnvironmentVariableIsEmpty("TZ")) {
        qputenv("TZ", ":/etc/localtime");
        tzset();
    }
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    pinTimeZone();
    pinLocale();
    pinFonts();
    setApplicationName(programTitle());
    setQuitOnLastWindowClosed(false); // the screens decide when the program ends (see Form)
}

void reportUnhandledError(const RuntimeError& error) {
    MsgBox(QStringLiteral("Run-time error '%1':\n\n%2").arg(error.Number).arg(error.Description), vbCritical,
           programTitle());
    endProcess(1);
}

namespace {
Form* formOf(QObject* receiver) {
    if (!receiver->isWidgetType())
        return nullptr;
    return qobject_cast<Form*>(static_cast<QWidget*>(receiver)->window());
}
} // namespace

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        switch (event->type()) {
        case QEvent::KeyPress:
            if (Form* form = formOf(receiver)) {
                std::unique_ptr<QKeyEvent> replacement;
                if (form->previewKeyPress(static_cast<QWidget*>(receiver), static_cast<QKeyEvent*>(event),
                                          &replacement))
                    return true;
                if (replacement)
                    return QApplication::notify(receiver, replacement.get());
            }
            break;
        case QEvent::KeyRelease:
            if (Form* form = formOf(receiver))
                if (form->previewKeyRelease(static_cast<QWidget*>(receiver), static_cast<QKeyEvent*>(event)))
                    return true;
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            if (Form* form = formOf(receiver))
                if (form->mousePressed(static_cast<QWidget*>(receiver), static_cast<QMouseEvent*>(event)))
                    return true;
            break;
        case QEvent::FocusIn:
        case QEvent::FocusOut: {
            const bool result = QApplication::notify(receiver, event);
            if (Form* form = formOf(receiver))
                form->focusChanged(static_cast<QWidget*>(receiver), event->type() == QEvent::FocusIn);
            return result;
        }
        default:
            break;
        }
        return QApplication::notify(receiver, event);
    } catch (...) {
        // From the screens' key and focus handlers, called from here before Qt sees the event.
        handleUncaught(std::current_exception());
    }
    return true;
}

void handleUncaught(std::exception_ptr error) noexcept {
    try {
        try {
            std::rethrow_exception(error);
        } catch (const RuntimeError& runtime) {
            reportUnhandledError(runtime);
        } catch (const std::exception& other) {
            reportUnhandledError(RuntimeError(vbErr::InvalidCall, QString::fromLocal8Bit(other.what())));
        }
    } catch (const ProcessEnded&) {
    }
}
