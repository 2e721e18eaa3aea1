#include "map/Frm_Principal.h"

#include "map/Mesa.h"
#include "platform/Twips.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <cmath>

namespace {
void escalarFonte(QWidget* w, double fator) {
    QFont f = w->font();
    f.setPointSizeF(f.pointSizeF() * fator);
    w->setFont(f);
}

int escalar(int pixels, double fator) {
    return static_cast<int>(std::lround(pixels * fator));
}
} // namespace

// The screens are designed for 1024 by 768 pixels, but the fonts scale against 1280 across, so they
// end up smaller than their boxes; that is how the screens have always looked.
void ajustaTela(QWidget& tela) {
    const double x = std::floor(screenWidthTwips() / twipsPerPixelX());
    const double y = std::floor(screenHeightTwips() / twipsPerPixelY());
    const double fonte = x / 1280, alto = y / 768, largo = x / 1024;

    const QList<QWidget*> controles = tela.findChildren<QWidget*>();
    for (QWidget* w : controles) {
        if (auto* c = qobject_cast<Mesa*>(w)) {
            c->setFontSize(c->FontSize() * fonte);
            c->setHeight(c->Height() * alto);
            c->setTop(c->Top() * alto);
            c->setWidth(c->Width() * largo);
            c->setLeft(c->Left() * largo);
            for (Mesa::Rotulo* r : c->rotulos()) {
                r->FontSize *= fonte;
                r->Top *= alto;
                r->Height *= alto;
                r->Left *= largo;
                r->Width *= largo;
            }
            c->update();
            continue;
        }
        // Labels and check boxes keep their width; item views, buttons, text boxes and frames scale
        // whole. Anything else (the hidden helpers, the parts inside a control) is left alone.
        bool larguraTambem;
        if (qobject_cast<QLabel*>(w) || qobject_cast<QCheckBox*>(w))
            larguraTambem = false;
        else if (qobject_cast<QAbstractItemView*>(w) || qobject_cast<QPushButton*>(w) ||
                 qobject_cast<QLineEdit*>(w) || qobject_cast<QGroupBox*>(w) || qobject_cast<QFrame*>(w))
            larguraTambem = true;
        else
            continue;
        if (w->objectName().isEmpty() || w->objectName().startsWith(QLatin1String("qt_")))
            continue;
        escalarFonte(w, fonte);
        const QRect g = w->geometry();
        w->setGeometry(escalar(g.x(), largo), escalar(g.y(), alto),
                       larguraTambem ? escalar(g.width(), largo) : g.width(), escalar(g.height(), alto));
    }
}
