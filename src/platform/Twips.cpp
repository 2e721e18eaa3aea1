#include "platform/Twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <cmath>

namespace {
double dpi(bool across) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return 96.0;
    const double value = across ? screen->logicalDotsPerInchX() : screen->logicalDotsPerInchY();
    return value > 0 ? value : 96.0;
}
QSize screenPixels() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry().size() : QSize(1024, 768);
}
} // namespace

double twipsPerPixelX() {
    return 1440.0 / dpi(true);
}
double twipsPerPixelY() {
    return 1440.0 / dpi(false);
}
int twipsToPixelsX(double twips) {
    return static_cast<int>(std::lround(twips / twipsPerPixelX()));
}
int twipsToPixelsY(double twips) {
    return static_cast<int>(std::lround(twips / twipsPerPixelY()));
}
double screenWidthTwips() {
    return screenPixels().width() * twipsPerPixelX();
}
double screenHeightTwips() {
    return screenPixels().height() * twipsPerPixelY();
}

void setTwipsGeometry(QWidget* w, double left, double top, double width, double height) {
    w->setGeometry(twipsToPixelsX(left), twipsToPixelsY(top), twipsToPixelsX(width), twipsToPixelsY(height));
}
