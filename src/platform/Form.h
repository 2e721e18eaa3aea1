#pragma once

#include <QHash>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

class QEventLoop;
class QInputEvent;
class QKeyEvent;
class QMouseEvent;

// The base of every Frm_ screen, with what the original's forms had:
//  - one default instance per screen, made and loaded (Form_Load) on first touch, gone after Unload;
//  - Show (modeless) and ShowModal (returns once the screen is unloaded);
//  - Form_Activate after the screen is shown, and again when a modal child shown through ShowModal
//    has closed;
//  - key preview: with KeyPreview on, Form_KeyDown/Form_KeyPress/Form_KeyUp see each key before the
//    focused control, then the control's own handlers. KeyCode = 0 in a KeyDown handler stops only
//    the control's KeyDown handler: the KeyPress still follows. KeyAscii = 0 in a KeyPress handler
//    keeps the character from the control;
//  - the events of the screen's named controls, bound once to the screen's handlers (onKeyPress
//    and the rest): a control's event goes to the nearest bound control that holds the widget;
//  - a Form_Load that raises leaves no instance behind: the next touch loads the screen again;
//  - no implicit Escape or Enter: only the screen's handlers give them a meaning.
// Key codes are the original's (vbKey...): F1 112, Escape 27, Enter 13, digits 48-57, keypad 96-105.
class QLabel;

class Form : public QWidget {
    Q_OBJECT

public:
    explicit Form(QWidget* parent = nullptr);
    ~Form() override;

    // The screen's default instance, loaded on first touch.
    template <class T> static T& defaultInstance() {
        QPointer<T>& slot = instanceSlot<T>();
        if (!slot || slot->isUnloaded()) {
            slot = new T;
            slot->load();
        }
        return *slot;
    }

    // Whether the default instance exists, without loading it.
    template <class T> static bool isLoaded() {
        QPointer<T>& slot = instanceSlot<T>();
        return slot && !slot->isUnloaded();
    }

    void Show();
    void ShowModal();
    // Runs Form_Unload; unless cancelled, hides the screen, ends its modal show and destroys it.
    void Unload();
    bool isUnloaded() const { return m_unloaded; }
    // Places the screen in the middle of the screen's available area, at its present size.
    void centerOnScreen();

    bool KeyPreview = false;
    // The buttons that Escape and Enter press, when the screen's handlers let the key through.
    class QAbstractButton* CancelButton = nullptr;
    class QAbstractButton* DefaultButton = nullptr;

    // The screen shown or returned to last.
    static Form* activeForm();
    // Tests: drops every screen at once, without their handlers.
    static void unloadAll();

    // Called by the application for every key, focus and mouse press event of a widget on this
    // screen. Returns true when the event is swallowed; a changed KeyAscii comes back in
    // *replacement.
    bool previewKeyPress(QWidget* target, QKeyEvent* event, std::unique_ptr<QKeyEvent>* replacement);
    bool previewKeyRelease(QWidget* target, QKeyEvent* event);
    void focusChanged(QWidget* target, bool gotFocus);
    // A press whose handler showed a message box is swallowed: the box took the mouse, so no
    // click follows, as on the original.
    bool mousePressed(QWidget* target, QMouseEvent* event);

    // The original's key code and shift state (1 Shift, 2 Ctrl, 4 Alt) of a key event.
    static int vbKeyCode(const QKeyEvent* event);
    static int vbShift(const QInputEvent* event);
    // The character code of a key press (KeyAscii), 0 when the key types nothing.
    static int vbKeyAscii(const QKeyEvent* event);

protected:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Unload(int& Cancel) {}
    virtual void Form_KeyDown(int& KeyCode, int Shift) {}
    virtual void Form_KeyPress(int& KeyAscii) {}
    virtual void Form_KeyUp(int& KeyCode, int Shift) {}

    // Binds an event of a named control to the screen's handler, once, in the constructor:
    // onKeyPress(Text_Codigo, &Frm_Mesa::Text_Codigo_KeyPress). A control without an object name
    // is a programming error.
    template <class F> void onKeyDown(QWidget* ctl, void (F::*handler)(int& KeyCode, int Shift)) {
        eventsOf(ctl).KeyDown = [this, handler](int& k, int s) { (static_cast<F*>(this)->*handler)(k, s); };
    }
    template <class F> void onKeyUp(QWidget* ctl, void (F::*handler)(int& KeyCode, int Shift)) {
        eventsOf(ctl).KeyUp = [this, handler](int& k, int s) { (static_cast<F*>(this)->*handler)(k, s); };
    }
    template <class F> void onKeyPress(QWidget* ctl, void (F::*handler)(int& KeyAscii)) {
        eventsOf(ctl).KeyPress = [this, handler](int& k) { (static_cast<F*>(this)->*handler)(k); };
    }
    template <class F> void onGotFocus(QWidget* ctl, void (F::*handler)()) {
        eventsOf(ctl).GotFocus = [this, handler] { (static_cast<F*>(this)->*handler)(); };
    }
    template <class F> void onLostFocus(QWidget* ctl, void (F::*handler)()) {
        eventsOf(ctl).LostFocus = [this, handler] { (static_cast<F*>(this)->*handler)(); };
    }
    // Button 1 left, 2 right, 4 middle; X and Y in twips inside the control.
    template <class F>
    void onMouseDown(QWidget* ctl, void (F::*handler)(int Button, int Shift, double X, double Y)) {
        eventsOf(ctl).MouseDown = [this, handler](int b, int s, double x, double y) {
            (static_cast<F*>(this)->*handler)(b, s, x, y);
        };
    }

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    template <class T> static QPointer<T>& instanceSlot() {
        static QPointer<T> slot;
        return slot;
    }
    struct ControlEvents {
        std::function<void(int&, int)> KeyDown, KeyUp;
        std::function<void(int&)> KeyPress;
        std::function<void()> GotFocus, LostFocus;
        std::function<void(int, int, double, double)> MouseDown;
    };
    ControlEvents& eventsOf(QWidget* ctl);
    // The bound control that holds w, and its events; nullptr when none does.
    QWidget* controlOf(QWidget* w) const;
    const ControlEvents* eventsFor(QWidget* ctl) const;

    void load();
    void activate();
    void showWindow();
    void discard();

    QHash<const QWidget*, ControlEvents> m_events;

    bool m_loaded = false;
    bool m_unloaded = false;
    QEventLoop* m_modalLoop = nullptr;
};

// A control under its name, the one its screen's code and the tests know it by.
template <class T> T* named(T* control, const char* name) {
    control->setObjectName(QLatin1String(name));
    return control;
}

// A label under its name.
QLabel* namedLabel(QWidget* parent, const char* name, const QString& text = QString());
