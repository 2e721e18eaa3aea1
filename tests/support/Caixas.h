#pragma once

#include "support/Support.h"

#include <QStringList>

// A box as "title (style): text", to compare every box shown in one go.
inline QString caixa(const QString& titulo, int estilo, const QString& texto) {
    return QStringLiteral("%1 (%2): %3").arg(titulo).arg(estilo).arg(texto);
}

inline QStringList caixas() {
    QStringList textos;
    for (const MsgBoxRecord& box : boxes())
        textos << caixa(box.title, box.style, box.prompt);
    return textos;
}

// A refusal or failure: "Atenção" with the critical icon.
inline QString atencao(const QString& texto) {
    return caixa(QStringLiteral("Atenção"), vbCritical, texto);
}
// A notice: "Aviso" with the information icon.
inline QString aviso(const QString& texto) {
    return caixa(QStringLiteral("Aviso"), vbInformation, texto);
}
// A question: "Pergunta", the question icon, Yes and No.
inline QString pergunta(const QString& texto) {
    return caixa(QStringLiteral("Pergunta"), vbYesNo | vbQuestion, texto);
}
