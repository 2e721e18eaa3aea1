#include "startup/atualizarBanco.h"
#include "support/TestMain.h"

#include <QCryptographicHash>
#include <QTest>

namespace {
// The upgrade as the SQL Server receives it, one line per statement in the order sent: each test
// with the count that lets its step run, the statements of a step inside another indented.
QStringList textosSqlServer(const std::vector<PassoDoBanco>& passos, const QString& recuo = QString()) {
    QStringList linhas;
    for (const PassoDoBanco& passo : passos) {
        linhas << recuo + passo.teste.sqlServer + QStringLiteral(" = %1").arg(passo.esperado);
        for (const Equivalente& comando : passo.comandos)
            linhas << recuo + comando.sqlServer;
        linhas << textosSqlServer(passo.dentro, recuo + QStringLiteral("  "));
    }
    return linhas;
}
} // namespace

class TestTextosDoBanco : public QObject {
    Q_OBJECT

private slots:
    // The server has always received these 64 lines character for character; no test here runs
    // them, so their digest guards every blank and bracket. The printer's name goes into the
    // department column as it stands, apostrophe and all.
    void sqlServerRecebeOsTextosDeSempre() {
        const QStringList linhas = textosSqlServer(passosDoBanco(QStringLiteral("EPSON D'AVILA")));
        QCOMPARE(linhas.size(), 64);
        QCOMPARE(linhas.at(34),
                 QStringLiteral("  ALTER TABLE Tb_Departamento ADD Impressora nvarchar(255) NOT "
                                "NULL DEFAULT 'EPSON D'AVILA'"));
        const QByteArray digesto =
            QCryptographicHash::hash(linhas.join(QLatin1Char('\n')).toUtf8(), QCryptographicHash::Sha1)
                .toHex();
        QVERIFY2(digesto == "453e21b33a1af749d3ae4de00da15aec88538b02",
                 qPrintable(linhas.join(QLatin1Char('\n'))));
    }
};

ZARVEL_TEST(TestTextosDoBanco)
#include "tst_textosDoBanco.moc"
