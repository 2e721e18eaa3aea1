#include "startup/Frm_Splash.h"

#include "platform/MsgBox.h"
#include "platform/Process.h"
#include "platform/SingleInstance.h"
#include "platform/Version.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

Frm_Splash::Frm_Splash() {
    setObjectName(QStringLiteral("Frm_Splash"));
    setWindowTitle(programTitle());
    setWindowFlags(Qt::SplashScreen | Qt::WindowStaysOnTopHint);
    resize(480, 300);

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
    lblVersion->setText(QStringLiteral("Versão %1.%2.%3").arg(appMajor()).arg(appMinor()).arg(appRevision()));
}
