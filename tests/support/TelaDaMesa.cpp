#include "support/TelaDaMesa.h"

#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "table/Frm_Mesa.h"

#include <QTest>

void naMesa(int mesa, const std::function<void(Frm_Mesa&)>& acao) {
    comandaAtual = std::make_unique<Comanda>();
    comandaAtual->apelido(static_cast<qint16>(mesa));
    onNextModal<Frm_Mesa>([acao](Frm_Mesa* f) {
        // Keys sent by the screen itself go to the focused control of the active window.
        f->activateWindow();
        if (!QTest::qWaitForWindowActive(f))
            qWarning("naMesa: the table screen never became the active window");
        acao(*f);
        if (Form::isLoaded<Frm_Mesa>())
            QTest::keyClick(&Frm_Mesa::instance(), Qt::Key_Escape);
    });
    Frm_Mesa::instance().ShowModal();
}

void TesteNaMesa::init() {
    m_env = std::make_unique<TestEnvironment>();
    bancoDeTeste(*m_env);
    idColaborador = 2;
}

void TesteNaMesa::cleanup() {
    m_env.reset();
}
