#include "table/Frm_Mesa.h"

#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"

// So far the screen does only what keeps terminals apart: while it is open the tab is in edition
// (2), and leaving it with Escape gives the table back, occupied (1) or, when blocked after its
// conference, in conference (3). The header, the items and the action strip are still to come.
Frm_Mesa::Frm_Mesa() {
    setObjectName(QStringLiteral("Frm_Mesa"));
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    KeyPreview = true;
    resize(800, 600);
}

void Frm_Mesa::Form_Load() {
    comandaAtual->status(2);
}

void Frm_Mesa::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == 27) {
        comandaAtual->status(comandaAtual->bloqueada() ? 3 : 1);
        Unload();
    }
}
