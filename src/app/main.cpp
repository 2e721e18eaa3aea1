#include "platform/Application.h"
#include "startup/Frm_Splash.h"

#include <QTimer>

int main(int argc, char* argv[]) {
    Application app(argc, argv);
    // Started from the event loop, so that whatever no routine handles reaches the one report.
    QTimer::singleShot(0, &app, guarded([] { Frm_Splash::instance().Show(); }));
    return app.exec();
}
