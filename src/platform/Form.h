#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

class QEventLoop;
class QKeyEvent;

// The base of every Frm_ screen, with what the original's forms had:
//  - one default instance per screen, made and loaded (Form_Load) on first touch, gone after Unload;
//  - Show (modeless) and ShowModal (returns once the screen is unloaded);
//  - Form_Activate after the screen is shown, and again when a modal child shown through ShowModal
//    has closed;
//  - key preview: with KeyPreview on, Form_KeyDown/Form_KeyPress/Form_KeyUp see each key before the
//    focused control, then the control's own handlers; setting the code to 0 swallows the key;
//  - no implicit Escape or Enter: only the screen's handlers give them a meaning.
// Key codes are the original's (vbKey...): F1 112, Escape 27, Enter 13, digits 48-57, keypad 96-105.
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

    bool KeyPreview = false;

    // The screen shown or returned to last.
    static Form* activeForm();
    // Tests: drops every screen at once, without their handlers.
    static void unloadAll();

    // Called by the application for every key and focus event of a widget on this screen.
    // Returns true when the key is swallowed; a changed KeyAscii comes back in *replacement.
    bool previewKeyPress(QWidget* target, QKeyEvent* event, std::unique_ptr<QKeyEvent>* replacement);
    bool previewKeyRelease(QWidget* target, QKeyEvent* event);
    void focusChanged(QWidget* target, bool gotFocus);

    // The original's key code and shift state (1 Shift, 2 Ctrl, 4 Alt) of a key event.
    static int vbKeyCode(const QKeyEvent* event);
    static int vbShift(const QKeyEvent* event);
    // The character code of a key press (KeyAscii), 0 when the key types nothing.
    static int vbKeyAscii(const QKeyEvent* event);

protected:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Unload(int& Cancel) {}
    virtual void Form_KeyDown(int& KeyCode, int Shift) {}
    virtual void Form_KeyPress(int& KeyAscii) {}
    virtual void Form_KeyUp(int& KeyCode, int Shift) {}

    // The events of the screen's controls: ctl is the named control that got the event.
    virtual void Control_KeyDown(QWidget* ctl, int& KeyCode, int Shift) {}
    virtual void Control_KeyPress(QWidget* ctl, int& KeyAscii) {}
    virtual void Control_KeyUp(QWidget* ctl, int& KeyCode, int Shift) {}
    virtual void Control_GotFocus(QWidget* ctl) {}
    virtual void Control_LostFocus(QWidget* ctl) {}

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    template <class T> static QPointer<T>& instanceSlot() {
        static QPointer<T> slot;
        return slot;
    }
    void load();
    void activate();
    void showWindow();
    QWidget* controlOf(QWidget* w) const;

    bool m_loaded = false;
    bool m_unloaded = false;
    QEventLoop* m_modalLoop = nullptr;
};
