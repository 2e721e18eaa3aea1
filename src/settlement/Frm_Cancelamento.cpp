#include "settlement/Frm_Cancelamento.h"

#include "platform/Clock.h"
#include "platform/MsgBox.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>

Frm_Cancelamento::Frm_Cancelamento()
    : Frm_Texto("Frm_Cancelamento", QStringLiteral("Cancelamento"), QStringLiteral("Motivo do cancelamento:"),
                "Text_Cancelamento", QStringLiteral("Insira aqui o motivo do cancelamento:")) {
    Text_Cancelamento = m_texto;
    Label_Caracteres = named(new QLabel(QStringLiteral("Caracteres: 0"), this), "Label_Caracteres");
    m_botoes->insertWidget(0, Label_Caracteres);
    onKeyPress(Text_Cancelamento, &Frm_Cancelamento::Text_Cancelamento_KeyPress);
    onKeyUp(Text_Cancelamento, &Frm_Cancelamento::Text_Cancelamento_KeyUp);
}

void Frm_Cancelamento::Text_Cancelamento_KeyPress(int& KeyAscii) {
    digitado(KeyAscii);
}

// The count is of the text as it stands, blanks at the ends included.
void Frm_Cancelamento::Text_Cancelamento_KeyUp(int& KeyCode, int Shift) {
    Label_Caracteres->setText(QStringLiteral("Caracteres: ") + CStr(Text_Cancelamento->toPlainText().size()));
}

// The tests run on the trimmed text and count characters, whatever the message says of letters.
// The four writes are separate: a failure half-way leaves the first ones in the store.
void Frm_Cancelamento::Cmd_Gravar_Click() {
    const QString motivo = Trim(Text_Cancelamento->toPlainText());
    const auto recusar = [](const QString& texto) {
        MsgBox(texto, vbOKOnly | vbCritical, QStringLiteral("Atenção"));
    };
    if (motivo.isEmpty()) {
        recusar(QStringLiteral("Informe o motivo do cancelamento!"));
        return;
    }
    if (motivo.size() < 30) {
        recusar(QStringLiteral("O cancelamento deve possuir ao menos 30 letras!"));
        return;
    }
    if (IsNumeric(motivo)) {
        recusar(QStringLiteral("O motivo do cancelamento não pode ser um número!"));
        return;
    }
    Comanda& comanda = *comandaAtual;
    comanda.cancelada(true);
    comanda.quem_cancelou(idColaborador);
    comanda.data_cancelamento(agora());
    comanda.motivo_cancelamento(UCase(motivo));
    Unload();
}
