#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTimer>

// Small helpers of the start-up tests.

// Writes an updater tool (a shell script under the platform's name for it) into the folder. When
// it runs it appends its folder to the record file, then runs the extra shell lines.
void escreverFerramenta(const QString& pasta, const QString& registro, const QString& extra = QString());

// The folders the tools recorded, in the order they ran.
QStringList execucoes(const QString& registro);

QByteArray conteudo(const QString& caminho);
void escreverArquivo(const QString& caminho, const QByteArray& bytes);

// The lines the start-up screen's progress label shows, in order. Each step lets pending events
// run, so a timer that fires at every turn of the event loop sees every line.
class LinhasDeProgresso {
public:
    LinhasDeProgresso();
    QStringList linhas() const { return m_linhas; }

private:
    QTimer m_timer;
    QStringList m_linhas;
};
