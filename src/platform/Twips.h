#pragma once

class QWidget;

// Screens are designed in twips (1440 to the inch), as on the original.
double twipsPerPixelX();
double twipsPerPixelY();
int twipsToPixelsX(double twips);
int twipsToPixelsY(double twips);

// The screen's size in twips (the original's Screen.Width and Screen.Height).
double screenWidthTwips();
double screenHeightTwips();

// Places a control at its design position.
void setTwipsGeometry(QWidget* w, double left, double top, double width, double height);
