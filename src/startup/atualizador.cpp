#include "startup/atualizador.h"

#include "platform/Clock.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/VbText.h"
#include "platform/Windows1252.h"
#include "startup/ExecCmd.h"
#include "startup/rotinasInicializacao.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
bool existeArquivo(const QString& caminho) {
    return QFileInfo(caminho).isFile();
}

QString caminhoDe(const QString& pasta, const QString& arquivo) {
    return QDir::toNativeSeparators(pasta + QLatin1Char('/') + arquivo);
}
} // namespace

void verificarAtualizador() {
    const QString ferramenta = updaterExecutableName();
    QString pasta;
    if (existeArquivo(caminhoDe(programFolder(), ferramenta))) {
        pasta = programFolder();
    } else if (existeArquivo(caminhoDe(updaterFolder(), ferramenta))) {
        pasta = updaterFolder();
    } else {
        gravarLog(QStringLiteral("[ZARVEL] Atualizador.exe não localizado"));
        return;
    }

    const QString ini = caminhoDe(pasta, QStringLiteral("atualizador.ini"));
    if (!existeArquivo(ini))
        criarAtualizadorIni(pasta);

    const QString modulo = QStringLiteral("MODULO");
    const qint16 feito = CInt(lerIni(ini, modulo, QStringLiteral("DONE")));
    const QString quem = lerIni(ini, modulo, QStringLiteral("WHO"));
    if (feito == 1 && quem == QLatin1String("ZARVEL")) {
        // The tool has just finished for this module: the next start hands over again.
        gravarIni(ini, modulo, QStringLiteral("WHO"), QString());
        gravarIni(ini, modulo, QStringLiteral("PATH"), QString());
        gravarIni(ini, modulo, QStringLiteral("DONE"), QStringLiteral("0"));
        gravarIni(ini, modulo, QStringLiteral("VERSION"), QString());
        return;
    }

    gravarIni(ini, modulo, QStringLiteral("WHO"), QStringLiteral("ZARVEL"));
    gravarIni(ini, modulo, QStringLiteral("PATH"), caminhoDe(programFolder(), programExecutableName()));
    gravarIni(ini, modulo, QStringLiteral("DONE"), QStringLiteral("0"));
    gravarIni(ini, modulo, QStringLiteral("VERSION"), QString());
    ExecCmd(caminhoDe(pasta, ferramenta));
}

void criarAtualizadorIni(const QString& pasta) {
    gravarArquivoBinario(caminhoDe(pasta, QStringLiteral("atualizador.ini")),
                         "[MODULO]\r\nWHO=\r\nDONE=0\r\nPATH=\r\nVERSION=");
}

void gravarLog(const QString& mensagem) {
    const QString pasta = programFolder() + QStringLiteral("/log/");
    if (!QFileInfo(pasta).isDir() && !QDir().mkdir(pasta))
        raiseError(vbErr::PathFileAccess);
    const QString arquivo = pasta + Format(agora(), QStringLiteral("ddMMyyyy")) + QStringLiteral(".txt");
    const QString linha = CStr(agora()) + QStringLiteral(" - ") + mensagem + QStringLiteral("\r\n");

    QFile log(arquivo);
    if (!log.open(QIODevice::WriteOnly | QIODevice::Append))
        raiseError(vbErr::PathFileAccess);
    // Text files of this machine are in its 8-bit code page.
    log.write(encodeWindows1252(linha));
}
