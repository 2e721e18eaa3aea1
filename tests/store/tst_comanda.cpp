#include "platform/RuntimeError.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "support/BancoDeTeste.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

namespace {
int contar(const QString& condicao) {
    return consultar(QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas WHERE ") + condicao).toInt();
}
} // namespace

class TestComanda : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_env = std::make_unique<TestEnvironment>();
        m_conexao = bancoDeTeste(*m_env);
        idColaborador = 2;
    }
    void cleanup() { m_env.reset(); }

    // A free table (its closed tab aside) gets one open row, written through to the store.
    void mesaLivreAbreUmaLinha() {
        cobrarServico = true;
        const int fechada = abrirComanda(7, 0);
        Comanda comanda;
        comanda.apelido(7);
        QVERIFY(comanda.id() != fechada);
        QCOMPARE(contar(QStringLiteral("id_comanda = %1 AND mesa = 7 AND status = 1 AND id_colaborador = 2 "
                                       "AND identificacao = 'MESA: 07' AND servico = 1 AND ocupantes = 1 AND "
                                       "valor_total = 0 AND id_cliente IS NULL AND bloqueada = 0")
                            .arg(comanda.id())),
                 1);
        QCOMPARE(contar(QStringLiteral("status <> 0")), 1);
        QCOMPARE(comanda.status(), qint16(1));
        QCOMPARE(comanda.dataCriacao(), testMoment());
    }

    void mesaOcupadaCarregaSemInserir() {
        const int id = abrirComanda(4, 2, 0, QDateTime(), 3);
        executar(QStringLiteral("UPDATE Tb_Comandas SET identificacao = 'JANELA', ocupantes = 3"));
        Comanda comanda;
        comanda.apelido(4);
        QCOMPARE(contar(QStringLiteral("1 = 1")), 1);
        QCOMPARE(comanda.id(), qint16(id));
        QCOMPARE(comanda.status(), qint16(2));
        QCOMPARE(comanda.identificacao(), QStringLiteral("JANELA"));
        QCOMPARE(comanda.ocupantes(), qint16(3));
        QCOMPARE(comanda.colaborador(), qint16(3));
    }

    // Active items of this tab only; the products are rounded half up, the charge is cut.
    void totais_data() {
        QTest::addColumn<QList<double>>("ativos");
        QTest::addColumn<bool>("servico");
        QTest::addColumn<double>("produtos");
        QTest::addColumn<double>("taxa");
        QTest::addColumn<double>("total");
        QTest::newRow("com serviço") << QList<double>{11.11, 22.22} << true << 33.33 << 3.33 << 36.66;
        QTest::newRow("sem serviço") << QList<double>{11.11, 22.22} << false << 33.33 << 3.33 << 33.33;
        QTest::newRow("arredonda") << QList<double>{10.005} << true << 10.01 << 1.0 << 11.01;
        QTest::newRow("corta") << QList<double>{19.99} << true << 19.99 << 1.99 << 21.98;
    }
    void totais() {
        QFETCH(QList<double>, ativos);
        QFETCH(bool, servico);
        QFETCH(double, produtos);
        QFETCH(double, taxa);
        QFETCH(double, total);
        taxaServico = 10;
        const int id = abrirComanda(1, 1);
        for (int n = 0; n < ativos.size(); ++n)
            itemNoBanco(id, n + 1, ativos.at(n));
        itemNoBanco(id, 9, 100, 0); // excluded
        itemNoBanco(abrirComanda(2, 1), 1, 50);
        Comanda comanda;
        comanda.apelido(1);
        comanda.servico(servico);
        comanda.totalizaMesa();
        QCOMPARE(comanda.valorProdutos(), produtos);
        QCOMPARE(comanda.valorServico(), taxa);
        QCOMPARE(comanda.valorTotal(), total);
        QCOMPARE(
            contar(QStringLiteral("id_comanda = %1 AND round(CAST(valor_servico AS numeric), 2) = %2 AND "
                                  "round(CAST(valor_total AS numeric), 2) = %3")
                       .arg(id)
                       .arg(taxa)
                       .arg(total)),
            1);
    }

    // "" goes in as Null; a write goes to the row as it was read, so another terminal's change in
    // between fails it.
    void escritas() {
        Comanda comanda;
        comanda.apelido(6);
        comanda.identificacao(QString());
        QCOMPARE(contar(QStringLiteral("mesa = 6 AND identificacao IS NULL")), 1);
        executar(QStringLiteral("UPDATE Tb_Comandas SET ocupantes = 6"), secondTerminal(m_conexao));
        try {
            comanda.ocupantes(2);
            QFAIL("the row had changed");
        } catch (const RuntimeError& erro) {
            QCOMPARE(erro.Number, vbErr::RowNotLocated);
        }
        QCOMPARE(contar(QStringLiteral("ocupantes = 6")), 1);
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
    QString m_conexao;
};

ZARVEL_TEST(TestComanda)
#include "tst_comanda.moc"
