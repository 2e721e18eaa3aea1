#include "map/Frm_Principal.h"
#include "map/Mesa.h"
#include "platform/Clock.h"
#include "platform/Twips.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include "platform/Timer.h"
#include <QLabel>
#include <QTest>
#include <cmath>
#include <memory>

namespace {
QString legendas(const Frm_Principal& mapa) {
    return QStringList({mapa.Label_Disponivel->text(), mapa.Label_Ocupada->text(), mapa.Label_Edicao->text(),
                        mapa.Label_Conferencia->text(), mapa.Label_Ociosa->text()})
        .join(QLatin1String(", "));
}

// The map loaded for the given number of tables (Form_Load runs), not shown.
Frm_Principal& carregarMapa(int mesas) {
    quantidadeMesas = static_cast<qint16>(mesas);
    return Frm_Principal::instance();
}

int statusDaLinha(int id) {
    return consultar(QStringLiteral("SELECT status FROM Tb_Comandas WHERE id_comanda = %1").arg(id)).toInt();
}
} // namespace

class TestMapaRefresh : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnvironment> ambiente;

private slots:
    void init() {
        ambiente = std::make_unique<TestEnvironment>();
        bancoDeTeste(*ambiente);
        tempoParaOcio = 10;
    }
    void cleanup() { ambiente.reset(); }

    void contadoresELegendas() {
        Frm_Principal& mapa = carregarMapa(30);
        mapa.mesasRefresh();
        QCOMPARE(legendas(mapa), QStringLiteral("Disponível (30), Ocupada (0), Edição (0), Conferência (0), "
                                                "Ociosa (0)"));

        const int id = abrirComanda(2, 1, 12.5);
        abrirComanda(3, 2);
        abrirComanda(4, 3);
        abrirComanda(30, 4);
        mapa.mesasRefresh();
        QCOMPARE(legendas(mapa), QStringLiteral("Disponível (26), Ocupada (1), Edição (1), Conferência (1), "
                                                "Ociosa (1)"));
        QCOMPARE(mapa.card[1]->status(), qint16(1));
        QCOMPARE(mapa.card[1]->valor(), QStringLiteral("12,5"));

        // A closed tab is no longer fetched, and every tick starts from free cards.
        executar(QStringLiteral("UPDATE Tb_Comandas SET status = 0 WHERE id_comanda = %1").arg(id));
        mapa.mesasRefresh();
        QCOMPARE(mapa.card[1]->status(), qint16(0));
        QCOMPARE(mapa.card[1]->valor(), QStringLiteral("0"));
        QCOMPARE(mapa.Label_Disponivel->text(), QStringLiteral("Disponível (27)"));
    }

    void regraDoOcio_data() {
        QTest::addColumn<int>("tempo");
        QTest::addColumn<int>("status");
        QTest::addColumn<QDateTime>("movimento");
        QTest::addColumn<QDateTime>("agora");
        QTest::addColumn<int>("esperado");
        const QDateTime meioDia = testMoment();
        QTest::newRow("limite: 12:00:59 a 12:10:00")
            << 10 << 1 << meioDia.addSecs(59) << meioDia.addSecs(600) << 4;
        QTest::newRow("9 minutos contados") << 10 << 1 << meioDia.addSecs(59) << meioDia.addSecs(599) << 1;
        QTest::newRow("edição nunca") << 0 << 2 << meioDia << meioDia.addSecs(3600) << 2;
        QTest::newRow("conferência nunca") << 10 << 3 << meioDia << meioDia.addSecs(3600) << 3;
        QTest::newRow("movimento no futuro") << 0 << 1 << meioDia.addSecs(300) << meioDia << 1;
        QTest::newRow("tempo zero") << 0 << 1 << meioDia << meioDia << 4;
    }
    void regraDoOcio() {
        QFETCH(int, tempo);
        QFETCH(int, status);
        QFETCH(QDateTime, movimento);
        QFETCH(QDateTime, agora);
        QFETCH(int, esperado);
        tempoParaOcio = static_cast<qint16>(tempo);
        const int id = abrirComanda(5, status, 10, movimento);
        setAgora(agora);
        Frm_Principal& mapa = carregarMapa(30);
        mapa.mesasRefresh();
        QCOMPARE(mapa.card[4]->status(), qint16(esperado));
        QCOMPARE(statusDaLinha(id), esperado);
    }

    // Terminals learn of each other only through the rows, at the next tick of their timer.
    void outroTerminalVeAMudancaNoTickSeguinte() {
        setAgora(QDateTime()); // the timer runs on the real clock
        Frm_Principal& mapa = carregarMapa(30);
        mapa.Show();
        QTest::qWait(0);

        const int id = abrirComanda(3, 2, 0, agora());
        QTRY_COMPARE_WITH_TIMEOUT(mapa.card[2]->status(), qint16(2), 1500);

        // And the other way round: the map marks an idle row, and the other terminal reads it.
        tempoParaOcio = 0;
        executar(QStringLiteral("UPDATE Tb_Comandas SET status = 1 WHERE id_comanda = %1").arg(id),
                 secondTerminal(conexaoLocal));
        QTRY_COMPARE_WITH_TIMEOUT(statusDaLinha(id), 4, 1500);
    }

    void posicoesDosCartoes_data() {
        QTest::addColumn<int>("mesas");
        QTest::addColumn<int>("coluna");
        QTest::addColumn<int>("linha");
        QTest::newRow("1") << 1 << 0 << 0;
        QTest::newRow("5: uma linha cheia") << 5 << 4 << 0;
        QTest::newRow("6: a sexta abre a segunda linha") << 6 << 0 << 1;
        QTest::newRow("26: a sexta linha com um cartão") << 26 << 0 << 5;
    }
    void posicoesDosCartoes() {
        QFETCH(int, mesas);
        QFETCH(int, coluna);
        QFETCH(int, linha);
        Frm_Principal& mapa = carregarMapa(mesas);
        QCOMPARE(mapa.card.size(), mesas);
        // Laid out on the design (1335 wide + 127 apart, 1215 high + 113 apart), then scaled once.
        const double largo = std::floor(screenWidthTwips() / twipsPerPixelX()) / 1024;
        const double alto = std::floor(screenHeightTwips() / twipsPerPixelY()) / 768;
        QCOMPARE(mapa.card.last()->Left(), (4039 + coluna * 1462) * largo);
        QCOMPARE(mapa.card.last()->Top(), (1289 + linha * 1328) * alto);
    }

    // A row whose table has no card is a failure the map doesn't handle: the process ends.
    void mesaSemCartaoEncerra() {
        Frm_Principal& mapa = carregarMapa(30);
        abrirComanda(31, 1);
        mapa.Show();
        QTRY_VERIFY_WITH_TIMEOUT(processEnded(), 1500);
        mapa.Timer->setEnabled(false);
        QVERIFY(!boxes().isEmpty());
        QVERIFY(boxes().first().prompt.startsWith(QStringLiteral("Run-time error '340':")));
    }
};

ZARVEL_TEST(TestMapaRefresh)
#include "tst_mapa_refresh.moc"
