#include "Ferramentas.h"

#include "platform/Paths.h"
#include "startup/Frm_Splash.h"

#include <QFile>
#include <QLabel>
#include <QStringList>

void escreverFerramenta(const QString& pasta, const QString& registro, const QString& extra) {
    const QString caminho = pasta + QLatin1Char('/') + updaterExecutableName();
    const QString script =
        QStringLiteral("#!/bin/sh\necho \"$(dirname \"$0\")\" >> '%1'\n%2\n").arg(registro, extra);
    escreverArquivo(caminho, script.toUtf8());
    QFile::setPermissions(caminho, QFile::permissions(caminho) | QFileDevice::ExeOwner);
}

QStringList execucoes(const QString& registro) {
    return QString::fromUtf8(conteudo(registro)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QByteArray conteudo(const QString& caminho) {
    QFile arquivo(caminho);
    if (!arquivo.open(QIODevice::ReadOnly))
        return QByteArray();
    return arquivo.readAll();
}

void escreverArquivo(const QString& caminho, const QByteArray& bytes) {
    QFile arquivo(caminho);
    if (arquivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
        arquivo.write(bytes);
}

LinhasDeProgresso::LinhasDeProgresso() {
    m_timer.setInterval(0);
    QObject::connect(&m_timer, &QTimer::timeout, [this] {
        if (!Form::isLoaded<Frm_Splash>())
            return;
        const QString texto = Frm_Splash::instance().lblWarning->text();
        if (texto != QLatin1String("Warning") && (m_linhas.isEmpty() || m_linhas.last() != texto))
            m_linhas.append(texto);
    });
    m_timer.start();
}
