#include "platform/Form.h"

#include <QLabel>

#include "platform/Application.h"
#include "platform/MsgBox.h"
#include "platform/Twips.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMouseEvent>
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
    try {
        Form_Load();
    } catch (...) {
        // Not loaded after all: the next touch makes and loads a new instance.
        discard();
        throw;
    }
}

// Gone without its handlers: hidden, out of any modal show, destroyed by the event loop.
void Form::discard() {
    m_unloaded = true;
    hide();
    if (m_modalLoop)
        m_modalLoop->quit();
    if (s_active == this)
        s_active = nullptr;
    deleteLater();
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

void Form::centerOnScreen() {
    move(screen()->availableGeometry().center() - rect().center());
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
    discard();
    quitWhenNoScreenIsLeft();
}

void Form::unloadAll() {
    const QSet<Form*> forms = allForms();
    for (Form* f : forms) {
        if (!f->m_unloaded)
            f->discard();
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

Form::ControlEvents& Form::eventsOf(QWidget* ctl) {
    Q_ASSERT_X(ctl && !ctl->objectName().isEmpty(), "Form", "an event bound to a control without a name");
    return m_events[ctl];
}

QWidget* Form::controlOf(QWidget* w) const {
    for (; w && w != this; w = w->parentWidget())
        if (m_events.contains(w))
            return w;
    return nullptr;
}

const Form::ControlEvents* Form::eventsFor(QWidget* ctl) const {
    const auto it = m_events.constFind(ctl);
    return it == m_events.cend() ? nullptr : &it.value();
}

namespace {
// A key that types a character the codes below don't name: the key it sits on, as a US keyboard
// reports it (Shift and 1 for "!", the letter's own key for an accented letter), so that a KeyUp
// handler sees every character typed.
int typedKeyCode(int key) {
    switch (key) {
    case Qt::Key_ParenRight:
        return 48;
    case Qt::Key_Exclam:
        return 49;
    case Qt::Key_At:
        return 50;
    case Qt::Key_NumberSign:
        return 51;
    case Qt::Key_Dollar:
        return 52;
    case Qt::Key_Percent:
        return 53;
    case Qt::Key_Ampersand:
        return 55;
    case Qt::Key_ParenLeft:
        return 57;
    case Qt::Key_Semicolon:
    case Qt::Key_Colon:
        return 186;
    case Qt::Key_Equal:
        return 187;
    case Qt::Key_Less:
        return 188;
    case Qt::Key_Underscore:
        return 189;
    case Qt::Key_Greater:
        return 190;
    case Qt::Key_Question:
        return 191;
    case Qt::Key_QuoteLeft:
    case Qt::Key_AsciiTilde:
        return 192;
    case Qt::Key_BracketLeft:
    case Qt::Key_BraceLeft:
        return 219;
    case Qt::Key_Backslash:
    case Qt::Key_Bar:
        return 220;
    case Qt::Key_BracketRight:
    case Qt::Key_BraceRight:
        return 221;
    case Qt::Key_Apostrophe:
    case Qt::Key_QuoteDbl:
        return 222;
    default:
        break;
    }
    if (key >= Qt::Key_Agrave && key <= Qt::Key_ydiaeresis) {
        const QString base = QChar(key).decomposition();
        const QChar letra = base.isEmpty() ? QChar() : base.at(0).toUpper();
        if (letra >= u'A' && letra <= u'Z')
            return 65 + (letra.unicode() - u'A');
    }
    return 0;
}
} // namespace

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
        return typedKeyCode(key);
    }
}

int Form::vbShift(const QInputEvent* e) {
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
    const auto gone = [&] { return !self || m_unloaded; };
    QWidget* ctl = controlOf(target);
    const int shift = vbShift(event);

    // KeyCode = 0 stops only the control's KeyDown: the key message itself goes on, so its
    // KeyPress still comes and the control still gets the key.
    int keyCode = vbKeyCode(event);
    if (keyCode != 0) {
        if (KeyPreview)
            Form_KeyDown(keyCode, shift);
        if (gone())
            return true;
        if (keyCode != 0 && ctl)
            if (const ControlEvents* e = eventsFor(ctl); e && e->KeyDown)
                e->KeyDown(keyCode, shift);
        if (gone())
            return true;
        QAbstractButton* botao = keyCode == 27 ? CancelButton : keyCode == 13 ? DefaultButton : nullptr;
        if (botao && botao->isEnabled()) {
            botao->click();
            return true;
        }
    }

    const int original = vbKeyAscii(event);
    if (original == 0)
        return false;
    int keyAscii = original;
    if (KeyPreview)
        Form_KeyPress(keyAscii);
    if (gone() || keyAscii == 0)
        return true;
    // The character goes where the key went down, even if a handler has moved the focus since.
    if (ctl)
        if (const ControlEvents* e = eventsFor(ctl); e && e->KeyPress)
            e->KeyPress(keyAscii);
    if (gone() || keyAscii == 0)
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
    if (!self || m_unloaded)
        return true;
    if (QWidget* ctl = controlOf(target))
        if (const ControlEvents* e = eventsFor(ctl); e && e->KeyUp)
            e->KeyUp(keyCode, shift);
    return !self || m_unloaded;
}

void Form::focusChanged(QWidget* target, bool gotFocus) {
    if (m_unloaded)
        return;
    QWidget* ctl = controlOf(target);
    const ControlEvents* e = ctl ? eventsFor(ctl) : nullptr;
    if (!e)
        return;
    if (gotFocus && e->GotFocus)
        e->GotFocus();
    else if (!gotFocus && e->LostFocus)
        e->LostFocus();
}

bool Form::mousePressed(QWidget* target, QMouseEvent* event) {
    if (m_unloaded)
        return false;
    QWidget* ctl = controlOf(target);
    const ControlEvents* e = ctl ? eventsFor(ctl) : nullptr;
    if (!e || !e->MouseDown)
        return false;
    int button = 0;
    switch (event->button()) {
    case Qt::LeftButton:
        button = 1;
        break;
    case Qt::RightButton:
        button = 2;
        break;
    case Qt::MiddleButton:
        button = 4;
        break;
    default:
        return false;
    }
    QPointer<Form> self(this);
    const QPointF p = target->mapTo(ctl, event->position());
    const int boxesBefore = msgBoxCount();
    e->MouseDown(button, vbShift(event), p.x() * twipsPerPixelX(), p.y() * twipsPerPixelY());
    return !self || m_unloaded || msgBoxCount() != boxesBefore;
}

QLabel* namedLabel(QWidget* parent, const char* name, const QString& text) {
    return named(new QLabel(text, parent), name);
}
