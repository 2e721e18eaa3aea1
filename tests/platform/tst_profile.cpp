#include "platform/Profile.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {
void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

QByteArray readBytes(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
} // namespace

class TestProfile : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_file;

private slots:
    void init() {
        m_file = m_dir.filePath(QStringLiteral("Zarvel.ini"));
        QFile::remove(m_file);
    }

    void read_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("expected");
        const QByteArray geral = "[Geral]\r\nServidor=SRV01\r\n";
        QTest::newRow("exact names") << geral << "Geral"
                                     << "Servidor"
                                     << "SRV01";
        QTest::newRow("names in any case") << geral << "GERAL"
                                           << "servidor"
                                           << "SRV01";
        QTest::newRow("missing section") << geral << "Outra"
                                         << "Servidor"
                                         << "padrão";
        QTest::newRow("missing key") << geral << "Geral"
                                     << "Impressora"
                                     << "padrão";
        QTest::newRow("spaces trimmed")
            << QByteArray("  [ Geral ]  \r\n  Servidor  =  SRV 01  \r\n") << "Geral"
            << "Servidor"
            << "SRV 01";
        QTest::newRow("tabs trimmed") << QByteArray("[Geral]\r\nServidor\t=\tSRV01\t\r\n") << "Geral"
                                      << "Servidor"
                                      << "SRV01";
        QTest::newRow("quotes stripped") << QByteArray("[Geral]\r\nServidor=\" SRV01 \"\r\n") << "Geral"
                                         << "Servidor"
                                         << " SRV01 ";
        QTest::newRow("one quote stays") << QByteArray("[Geral]\r\nServidor=\"SRV01\r\n") << "Geral"
                                         << "Servidor"
                                         << "\"SRV01";
        QTest::newRow("first of duplicates")
            << QByteArray("[Geral]\r\nServidor=A\r\nServidor=B\r\n") << "Geral"
            << "Servidor"
            << "A";
        QTest::newRow("comment never matches")
            << QByteArray("[Geral]\r\n;Servidor=A\r\nServidor=B\r\n") << "Geral"
            << "Servidor"
            << "B";
        QTest::newRow("key of another section")
            << QByteArray("[A]\r\nServidor=1\r\n[Geral]\r\nServidor=2\r\n") << "Geral"
            << "Servidor"
            << "2";
        QTest::newRow("not in its section") << QByteArray("[Geral]\r\n[A]\r\nServidor=1\r\n") << "Geral"
                                            << "Servidor"
                                            << "padrão";
        QTest::newRow("LF line ends") << QByteArray("[Geral]\nServidor=SRV01\nOutro=2\n") << "Geral"
                                      << "Servidor"
                                      << "SRV01";
        QTest::newRow("last line without end") << QByteArray("[Geral]\r\nServidor=SRV01") << "Geral"
                                               << "Servidor"
                                               << "SRV01";
        QTest::newRow("empty value is a value") << QByteArray("[Geral]\r\nServidor=\r\n") << "Geral"
                                                << "Servidor"
                                                << "";
        QTest::newRow("Windows-1252") << QByteArray("[Geral]\r\nNome=Jo\xe3o \x80 \x93x\x94\r\n") << "Geral"
                                      << "Nome" << QString::fromUtf8("João € “x”");
    }
    void read() {
        QFETCH(QByteArray, content);
        QFETCH(QString, section);
        QFETCH(QString, key);
        QFETCH(QString, expected);
        writeBytes(m_file, content);
        QString out = QStringLiteral("lixo");
        const int count =
            GetPrivateProfileString(section, key, QString::fromUtf8("padrão"), out, 255, m_file);
        QCOMPARE(out, expected);
        QCOMPARE(count, int(expected.size()));
    }

    void readMissingFile() {
        QString out;
        QCOMPARE(GetPrivateProfileString(QStringLiteral("Geral"), QStringLiteral("Servidor"), QString(), out,
                                         255, m_file),
                 0);
        QCOMPARE(out, QString());
        QCOMPARE(GetPrivateProfileString(QStringLiteral("Geral"), QStringLiteral("Servidor"),
                                         QStringLiteral("local"), out, 255, m_file),
                 5);
        QCOMPARE(out, QStringLiteral("local"));
    }

    void readCutToSize_data() {
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("expected");
        QTest::newRow("254 of 300") << 300 << 255 << 254;
        QTest::newRow("254 fits") << 254 << 255 << 254;
        QTest::newRow("255 cut") << 255 << 255 << 254;
        QTest::newRow("short value") << 10 << 255 << 10;
        QTest::newRow("room for nothing") << 10 << 1 << 0;
    }
    void readCutToSize() {
        QFETCH(int, length);
        QFETCH(int, size);
        QFETCH(int, expected);
        QByteArray value;
        for (int i = 0; i < length; ++i)
            value += char('a' + i % 26);
        writeBytes(m_file, "[Geral]\r\nLongo=" + value + "\r\n");
        QString out;
        QCOMPARE(GetPrivateProfileString(QStringLiteral("Geral"), QStringLiteral("Longo"), QString(), out,
                                         size, m_file),
                 expected);
        QCOMPARE(out, QString::fromLatin1(value.left(expected)));
        // The default is cut the same way.
        QCOMPARE(GetPrivateProfileString(QStringLiteral("Geral"), QStringLiteral("Outra"),
                                         QString::fromLatin1(value), out, size, m_file),
                 expected);
    }

    void write_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<bool>("exists");
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("creates the file") << QByteArray() << false << "Geral"
                                          << "Servidor"
                                          << "SRV01" << QByteArray("[Geral]\r\nServidor=SRV01\r\n");
        QTest::newRow("empty file") << QByteArray() << true << "Geral"
                                    << "Servidor"
                                    << "SRV01" << QByteArray("[Geral]\r\nServidor=SRV01\r\n");
        QTest::newRow("rewrites in place")
            << QByteArray(
                   "; configuração\r\n[Geral]\r\nA = 1 \r\n  Servidor = velho  \r\n\r\nB=2\r\n[Outra]\r\n"
                   "Servidor=3\r\n")
            << true << "Geral"
            << "Servidor"
            << "novo"
            << QByteArray("; configuração\r\n[Geral]\r\nA = 1 \r\nServidor=novo\r\n\r\nB=2\r\n[Outra]\r\n"
                          "Servidor=3\r\n");
        QTest::newRow("rewrites in any case")
            << QByteArray("[GERAL]\r\nSERVIDOR=velho\r\n") << true << "geral"
            << "Servidor"
            << "novo" << QByteArray("[GERAL]\r\nServidor=novo\r\n");
        QTest::newRow("rewrites the first of duplicates")
            << QByteArray("[Geral]\r\nServidor=1\r\nServidor=2\r\n") << true << "Geral"
            << "Servidor"
            << "3" << QByteArray("[Geral]\r\nServidor=3\r\nServidor=2\r\n");
        QTest::newRow("comment is no key line")
            << QByteArray("[Geral]\r\n;Servidor=1\r\n") << true << "Geral"
            << "Servidor"
            << "2" << QByteArray("[Geral]\r\nServidor=2\r\n;Servidor=1\r\n");
        QTest::newRow("new key after the section's last key")
            << QByteArray("[Geral]\r\nA=1\r\nB=2\r\n\r\n; fim\r\n[Outra]\r\nC=3\r\n") << true << "Geral"
            << "Impressora"
            << "LPT1"
            << QByteArray("[Geral]\r\nA=1\r\nB=2\r\nImpressora=LPT1\r\n\r\n; fim\r\n[Outra]\r\nC=3\r\n");
        QTest::newRow("new key in an empty section")
            << QByteArray("[Geral]\r\n[Outra]\r\nC=3\r\n") << true << "Geral"
            << "A"
            << "1" << QByteArray("[Geral]\r\nA=1\r\n[Outra]\r\nC=3\r\n");
        QTest::newRow("new section at the end")
            << QByteArray("[Geral]\r\nA=1\r\n\r\n") << true << "Impressoras"
            << "Conferencia"
            << "HP" << QByteArray("[Geral]\r\nA=1\r\n\r\n[Impressoras]\r\nConferencia=HP\r\n");
        QTest::newRow("last line without end") << QByteArray("[Geral]\r\nA=1") << true << "Geral"
                                               << "B"
                                               << "2" << QByteArray("[Geral]\r\nA=1\r\nB=2\r\n");
        QTest::newRow("LF file keeps its lines") << QByteArray("[Geral]\nA=1\nB=2\n") << true << "Geral"
                                                 << "A"
                                                 << "9" << QByteArray("[Geral]\nA=9\nB=2\n");
        QTest::newRow("empty value") << QByteArray("[Geral]\r\nA=1\r\n") << true << "Geral"
                                     << "A"
                                     << "" << QByteArray("[Geral]\r\nA=\r\n");
        QTest::newRow("Windows-1252")
            << QByteArray() << false << QString::fromUtf8("Seção") << "Nome" << QString::fromUtf8("João € ✓")
            << QByteArray("[Se\xe7\xe3o]\r\nNome=Jo\xe3o \x80 ?\r\n");
    }
    void write() {
        QFETCH(QByteArray, before);
        QFETCH(bool, exists);
        QFETCH(QString, section);
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(QByteArray, after);
        if (exists)
            writeBytes(m_file, before);
        QVERIFY(WritePrivateProfileString(section, key, value, m_file));
        QCOMPARE(readBytes(m_file), after);
    }

    void writeThenRead() {
        QVERIFY(WritePrivateProfileString(QStringLiteral("Geral"), QStringLiteral("Nome"),
                                          QString::fromUtf8("Padaria São João"), m_file));
        QVERIFY(WritePrivateProfileString(QStringLiteral("Geral"), QStringLiteral("Caixa"),
                                          QStringLiteral("2"), m_file));
        QString out;
        QCOMPARE(GetPrivateProfileString(QStringLiteral("geral"), QStringLiteral("NOME"), QString(), out, 255,
                                         m_file),
                 16);
        QCOMPARE(out, QString::fromUtf8("Padaria São João"));
    }

    void writeIntoMissingFolder() {
        const QString file = m_dir.filePath(QStringLiteral("nao/existe/Zarvel.ini"));
        QVERIFY(!WritePrivateProfileString(QStringLiteral("Geral"), QStringLiteral("A"), QStringLiteral("1"),
                                           file));
        QVERIFY(!QDir(m_dir.filePath(QStringLiteral("nao"))).exists());
    }
};

ZARVEL_TEST(TestProfile)
#include "tst_profile.moc"
