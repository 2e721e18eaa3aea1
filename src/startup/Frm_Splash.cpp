#include "startup/Frm_Splash.h"

#include "access/Frm_Login.h"
#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "platform/Process.h"
#include "platform/RuntimeError.h"
#include "platform/SingleInstance.h"
#include "platform/Version.h"
#include "startup/atualizador.h"
#include "startup/atualizarBanco.h"
#include "startup/rotinasInicializacao.h"
#include "startup/variaveisGlobais.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace {
// The original's one mouse pointer of the whole screen: set, not stacked.
void ampulheta() {
    if (QApplication::overrideCursor())
        QApplication::changeOverrideCursor(Qt::WaitCursor);
    else
        QApplication::setOverrideCursor(Qt::WaitCursor);
}

void ponteiroPadrao() {
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}
} // namespace

Frm_Splash::Frm_Splash() {
    setObjectName(QStringLiteral("Frm_Splash"));
    setWindowTitle(programTitle());
    // Not kept on top: the start's failure boxes come up over this screen and must stay visible.
    setWindowFlags(Qt::SplashScreen);
    resize(480, 300);
    centerOnScreen();

    Ado_Inicializacao = new DataControl(QStringLiteral("Ado_Inicializacao"), this);
    Ado_Inicializacao->ConnectionTimeout = 15;
    Ado_Inicializacao->CommandTimeout = 30;
    // The routines report a failed connection in their own words.
    Ado_Inicializacao->Error = [](int ErrorNumber, bool& fCancelDisplay) {
        if (ErrorNumber == 16389)
            fCancelDisplay = true;
    };

    Frame1 = new QFrame(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Frame1->setFrameShape(QFrame::Box);
    auto* outer = new QVBoxLayout(this);
    outer->addWidget(Frame1);

    Image1 = new QLabel(Frame1);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setText(programTitle());
    Image1->setAlignment(Qt::AlignCenter);
    QFont big = Image1->font();
    big.setPointSize(36);
    big.setBold(true);
    Image1->setFont(big);

    lblWarning = new QLabel(QStringLiteral("Warning"), Frame1);
    lblWarning->setObjectName(QStringLiteral("lblWarning"));
    lblVersion = new QLabel(QStringLiteral("Version"), Frame1);
    lblVersion->setObjectName(QStringLiteral("lblVersion"));

    auto* inner = new QVBoxLayout(Frame1);
    inner->addWidget(Image1, 1);
    inner->addWidget(lblWarning);
    inner->addWidget(lblVersion);
}

void Frm_Splash::Form_Load() {
    if (PrevInstance()) {
        MsgBox(QStringLiteral("O Zarvel já está em execução!"), vbOKOnly | vbInformation,
               QStringLiteral("Aviso"));
        endProcess();
    }
    verificarAtualizador();
    lblVersion->setText(QStringLiteral("Versão %1.%2.%3").arg(appMajor()).arg(appMinor()).arg(appRevision()));
}

void Frm_Splash::Form_Activate() {
    inicializacao();
}

void Frm_Splash::inicializacao() {
    try {
        ampulheta();

        exibirProgresso(QStringLiteral("Verificando arquivos de configuração"));
        verificarArquivos();

        exibirProgresso(QStringLiteral("Obtendo servidor local"));
        servidorLocal = lerIni(arquivoServerIni(), QStringLiteral("SERVIDOR"), QStringLiteral("IPCONEXAO"));

        exibirProgresso(QStringLiteral("Definindo Conexão"));
        conexaoLocal = QStringLiteral("Provider=SQLNCLI;Server=") + servidorLocal +
                       QStringLiteral(";Database=Norvik;Uid=sa;Pwd=@vzqrmlkd#318");

        exibirProgresso(QStringLiteral("Verificando banco de dados"));
        atualizarBanco();

        exibirProgresso(QStringLiteral("Fazendo leitura dos dados locais"));
        if (!lerDadosLocais()) {
            ponteiroPadrao();
            endProcess();
        }

        if (!controleUsuario) {
            MsgBox(QStringLiteral("Ative o controle de usuário"), vbOKOnly | vbCritical,
                   QStringLiteral("Atenção"));
            endProcess();
        }

        ponteiroPadrao();
        Unload();
        Frm_Login::instance().Show();
    } catch (const RuntimeError& erro) {
        // Nothing further: the screen stays, with the hourglass, until the process is closed.
        MsgBox(describe(erro), vbOKOnly, programTitle());
    }
}
