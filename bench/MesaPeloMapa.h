#pragma once

#include "map/Frm_Principal.h"
#include "platform/Form.h"
#include "table/Frm_Mesa.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <functional>
#include <memory>

// A key pressed and released on w, as the keyboard sends it.
inline void tecla(QWidget* w, int key, const QString& texto = QString()) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, texto);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, texto);
    QApplication::sendEvent(w, &press);
    QApplication::sendEvent(w, &release);
}

// One timed opening of a table from the map: card_Click, the password prompt answered with the
// administrator's password, the table screen up; the Escape that leaves it again is not timed.
// Questions are the caller's to answer through the box hook.
inline void abrirMesaPeloMapa(benchmark::State& state, qint16 indice) {
    QTimer::singleShot(0, [] {
        QWidget* prompt = QApplication::activeModalWidget();
        auto* senha = prompt ? prompt->findChild<QLineEdit*>() : nullptr;
        if (!senha)
            qFatal("no password prompt");
        senha->setText(QStringLiteral("1234"));
        tecla(senha, Qt::Key_Return, QStringLiteral("\r"));
    });
    QTimer::singleShot(0, [&state] {
        auto agendar = std::make_shared<std::function<void()>>();
        *agendar = [&state, agendar] {
            if (!Form::isLoaded<Frm_Mesa>() || !Frm_Mesa::instance().isVisible()) {
                QTimer::singleShot(0, *agendar);
                return;
            }
            state.PauseTiming();
            QKeyEvent esc(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QApplication::sendEvent(&Frm_Mesa::instance(), &esc);
            state.ResumeTiming();
        };
        (*agendar)();
    });
    Frm_Principal::instance().card_Click(indice);
}
