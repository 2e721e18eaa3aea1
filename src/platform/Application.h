#pragma once

#include <QApplication>
#include <exception>
#include <type_traits>
#include <utility>

class RuntimeError;

// The application object. Its notify catches what no routine handled in the handlers it calls
// itself: it shows the run time's report and ends the process. It also routes keys and focus
// changes to the screens (key preview and control events, see Form).
class Application : public QApplication {
    Q_OBJECT

public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};

// The run time's report of an unhandled error ("Run-time error 'N':", a blank line, the
// description, titled with the program's title), then the end of the process.
void reportUnhandledError(const RuntimeError& error);

// What no routine handled, caught where Qt called the program: the run time's report and the end.
// A test's replaced end stops here: its handler has seen it, and nothing after the end has run.
void handleUncaught(std::exception_ptr error) noexcept;

// Every handler that Qt calls from inside its own event handling (a signal's slot, a timer, an
// event filter or an event override) runs through one of these, so that what it leaves unhandled
// is reported right there. An exception must never unwind through Qt's frames: Qt isn't built for
// it, and leaks or is left half-way through an event.
template <class F> void runGuarded(F&& handler) noexcept {
    try {
        handler();
    } catch (...) {
        handleUncaught(std::current_exception());
    }
}

// The handler as a slot for connect: it takes as many of the signal's arguments as it needs.
template <class F> auto guarded(F handler) {
    return [handler = std::move(handler)](
               auto&&... args) -> std::enable_if_t<std::is_invocable_v<const F&, decltype(args)...>> {
        runGuarded([&] { handler(std::forward<decltype(args)>(args)...); });
    };
}

// Brazilian Portuguese for every number and date the program shows.
void pinLocale();

// Segoe UI, the screens' font, mapped to a metric neighbour where the system has none.
void pinFonts();
