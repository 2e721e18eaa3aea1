#pragma once

#include "support/Support.h"

#include <QStringList>

// Every box shown so far as "title (style): text", to compare in one go.
inline QStringList caixas() {
    QStringList textos;
    for (const MsgBoxRecord& box : boxes())
        textos << QStringLiteral("%1 (%2): %3").arg(box.title).arg(box.style).arg(box.prompt);
    return textos;
}

// A refusal or failure box: "Atenção" with the critical icon.
inline QString atencao(const QString& texto) {
    return QStringLiteral("Atenção (16): ") + texto;
}
