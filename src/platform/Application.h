#pragma once

#include <QApplication>

class RuntimeError;

// The application object. Its notify is the one place that catches what no routine handled: it
// shows the run time's report and ends the process. It also routes keys and focus changes to the
// screens (key preview and control events, see Form).
class Application : public QApplication {
    Q_OBJECT

public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};

// The run time's report of an unhandled error ("Run-time error 'N':", a blank line, the
// description, titled with the program's title), then the end of the process.
void reportUnhandledError(const RuntimeError& error);

// Brazilian Portuguese for every number and date the program shows.
void pinLocale();

// Segoe UI, the screens' font, mapped to a metric neighbour where the system has none.
void pinFonts();
