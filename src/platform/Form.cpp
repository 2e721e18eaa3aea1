#include "platform/Form.h"

#include "platform/Application.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QScreen>
#include <QSet>
#include <QTimer>

namespace {
QPointer<Form> s_active;
QSet<Form*>& allForms() {
    static QSet<Form*> forms;
    return forms;
}

// The program ends when its last screen is unloaded. The test runs a turn later, so that a screen
// that unloads itself and shows the next one doesn't end it.
void quitWhenNoScreenIsLeft() {
    QTimer::singleShot(0, qApp, [] {
        for (Form* f : std::as_const(allForms()))
            if (!f->isUnloaded())
                return;
        QCoreApplication::quit();
    });
}
} // namespace

Form::Form(QWidget* parent) : QWidget(parent, Qt::Window) {
    setAttribute(Qt::WA_DeleteOnClose, false);
    allForms().insert(this);
}

Form::~Form() {
    allForms().remove(this);
}

Form* Form::activeForm() {
    return s_active;
}

void Form::load() {
    if (m_loaded)
        return;
    m_loaded = true;
    Form_Load();
}

void Form::activate() {
    s_active = this;
    Form_Activate();
}

// A screen that starts maximized is first laid over the screen's available area: with no window
// manager (a bare X server) nothing else would act on the state, and a window manager maximizes it
// all the same.
void Form::showWindow() {
    if (!isVisible() && (windowState() & Qt::WindowMaximized)) {
        const Qt::WindowStates states = windowState();
        setGeometry(screen()->availableGeometry());
        setWindowState(states);
    }
    show();
}

void Form::Show() {
    if (m_unloaded)
        return;
    load();
    showWindow();
    activateWindow();
    if (s_active != this)
        activate();
}

void Form::ShowModal() {
    if (m_unloaded)
        return;
    load();
    QPointer<Form> previous = s_active;
    QPointer<Form> self(this);
    setWindowModality(Qt::ApplicationModal);
    showWindow();
    activateWindow();
    activate();
    if (self && !m_unloaded) {
        QEventLoop loop;
        m_modalLoop = &loop;
        loop.exec(QEventLoop::DialogExec);
        if (self)
            m_modalLoop = nullptr;
    }
    if (previous && !previous->isUnloaded() && previous != self) {
        previous->activateWindow();
        previous->activate();
    }
}

void Form::Unload() {
    if (m_unloaded)
        return;
    int cancel = 0;
    Form_Unload(cancel);
    if (cancel != 0)
        return;
    m_unloaded = true;
    hide();
    if (m_modalLoop)
        m_modalLoop->quit();
    if (s_active == this)
        s_active = nullptr;
    deleteLater();
    quitWhenNoScreenIsLeft();
}

void Form::unloadAll() {
    const QSet<Form*> forms = allForms();
    for (Form* f : forms) {
        if (f->m_unloaded)
            continue;
        f->m_unloaded = true;
        f->hide();
        if (f->m_modalLoop)
            f->m_modalLoop->quit();
        f->deleteLater();
    }
    s_active = nullptr;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Form::closeEvent(QCloseEvent* event) {
    // The window's own close button unloads the screen, as on the original.
    event->ignore();
    runGuarded([this] { Unload(); });
}

void Form::keyPressEvent(QKeyEvent* event) {
    // No dialog-style Escape or default button: the screen's handlers decide.
    QWidget::keyPressEvent(event);
}

QWidget* Form::controlOf(QWidget* w) const {
    for (; w && w != this; w = w->parentWidget()) {
        const QString name = w->objectName();
        if (!name.isEmpty() && !name.startsWith(QLatin1String("qt_")))
            return w;
    }
    return nullptr;
}

int Form::vbKeyCode(const QKeyEvent* e) {
    const int key = e->key();
    const bool keypad = e->modifiers() & Qt::KeypadModifier;
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return (keypad ? 96 : 48) + (key - Qt::Key_0);
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return 65 + (key - Qt::Key_A);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return 112 + (key - Qt::Key_F1);
    switch (key) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Space:
        return 32;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_End:
        return 35;
    case Qt::Key_Home:
        return 36;
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    case Qt::Key_Insert:
        return 45;
    case Qt::Key_Delete:
        return 46;
    case Qt::Key_Asterisk:
        return keypad ? 106 : 0;
    case Qt::Key_Plus:
        return keypad ? 107 : 187;
    case Qt::Key_Minus:
        return keypad ? 109 : 189;
    case Qt::Key_Period:
        return keypad ? 110 : 190;
    case Qt::Key_Slash:
        return keypad ? 111 : 191;
    case Qt::Key_Comma:
        return 188;
    default:
        return 0;
    }
}

int Form::vbShift(const QKeyEvent* e) {
    int shift = 0;
    if (e->modifiers() & Qt::ShiftModifier)
        shift |= 1;
    if (e->modifiers() & Qt::ControlModifier)
        shift |= 2;
    if (e->modifiers() & Qt::AltModifier)
        shift |= 4;
    return shift;
}

int Form::vbKeyAscii(const QKeyEvent* e) {
    const QString text = e->text();
    if (!text.isEmpty())
        return text.at(0).unicode();
    switch (e->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Backspace:
        return 8;
    default:
        return 0;
    }
}

namespace {
int qtKeyOfChar(int ascii) {
    switch (ascii) {
    case 8:
        return Qt::Key_Backspace;
    case 13:
        return Qt::Key_Return;
    case 27:
        return Qt::Key_Escape;
    default:
        return ascii >= 'a' && ascii <= 'z' ? ascii - 32 : ascii;
    }
}
} // namespace

bool Form::previewKeyPress(QWidget* target, QKeyEvent* event, std::unique_ptr<QKeyEvent>* replacement) {
    QPointer<Form> self(this);
    QWidget* ctl = controlOf(target);
    const int shift = vbShift(event);

    int keyCode = vbKeyCode(event);
    if (keyCode != 0) {
        if (KeyPreview)
            Form_KeyDown(keyCode, shift);
        if (!self || m_unloaded || keyCode == 0)
            return true;
        if (ctl)
            Control_KeyDown(ctl, keyCode, shift);
        if (!self || m_unloaded || keyCode == 0)
            return true;
    }

    const int original = vbKeyAscii(event);
    if (original == 0)
        return false;
    int keyAscii = original;
    if (KeyPreview)
        Form_KeyPress(keyAscii);
    if (!self || m_unloaded || keyAscii == 0)
        return true;
    if (ctl)
        Control_KeyPress(ctl, keyAscii);
    if (!self || m_unloaded || keyAscii == 0)
        return true;
    if (keyAscii != original)
        replacement->reset(new QKeyEvent(event->type(), qtKeyOfChar(keyAscii),
                                         event->modifiers() & ~Qt::KeypadModifier, QString(QChar(keyAscii)),
                                         event->isAutoRepeat()));
    return false;
}

bool Form::previewKeyRelease(QWidget* target, QKeyEvent* event) {
    if (event->isAutoRepeat())
        return false;
    QPointer<Form> self(this);
    int keyCode = vbKeyCode(event);
    if (keyCode == 0)
        return false;
    const int shift = vbShift(event);
    if (KeyPreview)
        Form_KeyUp(keyCode, shift);
    if (!self || m_unloaded || keyCode == 0)
        return true;
    if (QWidget* ctl = controlOf(target))
        Control_KeyUp(ctl, keyCode, shift);
    return !self || m_unloaded || keyCode == 0;
}

void Form::focusChanged(QWidget* target, bool gotFocus) {
    if (m_unloaded)
        return;
    QWidget* ctl = controlOf(target);
    if (!ctl)
        return;
    if (gotFocus)
        Control_GotFocus(ctl);
    else
        Control_LostFocus(ctl);
}
