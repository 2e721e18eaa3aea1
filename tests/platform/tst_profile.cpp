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
        auto row = [](const char* name, const QByteArray& content, const char* section, const char* key,
                      const char* expected) {
            QTest::newRow(name) << content << QString::fromUtf8(section) << QString::fromUtf8(key)
                                << QString::fromUtf8(expected);
        };
        const QByteArray geral = "[Geral]\r\nServidor=SRV01\r\n";
        row("exact names", geral, "Geral", "Servidor", "SRV01");
        row("names in any case", geral, "GERAL", "servidor", "SRV01");
        row("missing section", geral, "Outra", "Servidor", "padrão");
        row("missing key", geral, "Geral", "Impressora", "padrão");
        row("spaces trimmed", "  [ Geral ]  \r\n  Servidor  =  SRV 01  \r\n", "Geral", "Servidor", "SRV 01");
        row("quotes stripped", "[Geral]\r\nServidor=\" SRV01 \"\r\n", "Geral", "Servidor", " SRV01 ");
        row("comment never matches", "[Geral]\r\n;Servidor=A\r\nServidor=B\r\n", "Geral", "Servidor", "B");
        row("key of another section", "[A]\r\nServidor=1\r\n[Geral]\r\nServidor=2\r\n", "Geral", "Servidor",
            "2");
        row("LF line ends", "[Geral]\nServidor=SRV01\nOutro=2\n", "Geral", "Servidor", "SRV01");
        row("last line without end", "[Geral]\r\nServidor=SRV01", "Geral", "Servidor", "SRV01");
        row("empty value is a value", "[Geral]\r\nServidor=\r\n", "Geral", "Servidor", "");
        row("Windows-1252", "[Geral]\r\nNome=Jo\xe3o \x80 \x93x\x94\r\n", "Geral", "Nome", "João € “x”");
    }
    void read() {
        QFETCH(QByteArray, content);
        QFETCH(QString, section);
        QFETCH(QString, key);
        QFETCH(QString, expected);
        writeBytes(m_file, content);
        QString out = QStringLiteral("lixo");
        QCOMPARE(GetPrivateProfileString(section, key, QString::fromUtf8("padrão"), out, 255, m_file),
                 int(expected.size()));
        QCOMPARE(out, expected);
    }

    void readMissingFile() {
        QString out = QStringLiteral("lixo");
        QCOMPARE(GetPrivateProfileString(QStringLiteral("Geral"), QStringLiteral("Servidor"), QString(), out,
                                         255, m_file),
                 0);
        QCOMPARE(out, QString());
        QCOMPARE(GetPrivateProfileString(QStringLiteral("Geral"), QStringLiteral("Servidor"),
                                         QStringLiteral("local"), out, 255, m_file),
                 5);
        QCOMPARE(out, QStringLiteral("local"));
    }

    // A buffer of 255 holds 254 characters and the terminator.
    void readCutToSize_data() {
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("expected");
        QTest::newRow("254 of 300") << 300 << 254;
        QTest::newRow("255 cut") << 255 << 254;
        QTest::newRow("short value") << 10 << 10;
    }
    void readCutToSize() {
        QFETCH(int, length);
        QFETCH(int, expected);
        QByteArray value;
        for (int i = 0; i < length; ++i)
            value += char('a' + i % 26);
        writeBytes(m_file, "[Geral]\r\nLongo=" + value + "\r\n");
        QString out;
        QCOMPARE(GetPrivateProfileString(QStringLiteral("Geral"), QStringLiteral("Longo"), QString(), out,
                                         255, m_file),
                 expected);
        QCOMPARE(out, QString::fromLatin1(value.left(expected)));
        // The default is cut the same way.
        QCOMPARE(GetPrivateProfileString(QStringLiteral("Geral"), QStringLiteral("Outra"),
                                         QString::fromLatin1(value), out, 255, m_file),
                 expected);
    }

    void write_data() {
        QTest::addColumn<QByteArray>("before"); // null: no file
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QByteArray>("after");
        auto row = [](const char* name, const QByteArray& before, const char* section, const char* key,
                      const char* value, const QByteArray& after) {
            QTest::newRow(name) << before << QString::fromUtf8(section) << QString::fromUtf8(key)
                                << QString::fromUtf8(value) << after;
        };
        row("creates the file", QByteArray(), "Geral", "Servidor", "SRV01", "[Geral]\r\nServidor=SRV01\r\n");
        row("rewrites in place",
            "; configuração\r\n[Geral]\r\nA = 1 \r\n  Servidor = velho  "
            "\r\n\r\nB=2\r\n[Outra]\r\nServidor=3\r\n",
            "Geral", "Servidor", "novo",
            "; configuração\r\n[Geral]\r\nA = 1 \r\nServidor=novo\r\n\r\nB=2\r\n[Outra]\r\nServidor=3\r\n");
        row("rewrites in any case", "[GERAL]\r\nSERVIDOR=velho\r\n", "geral", "Servidor", "novo",
            "[GERAL]\r\nServidor=novo\r\n");
        row("new key after the section's last key",
            "[Geral]\r\nA=1\r\nB=2\r\n\r\n; fim\r\n[Outra]\r\nC=3\r\n", "Geral", "Impressora", "LPT1",
            "[Geral]\r\nA=1\r\nB=2\r\nImpressora=LPT1\r\n\r\n; fim\r\n[Outra]\r\nC=3\r\n");
        row("new section at the end", "[Geral]\r\nA=1\r\n\r\n", "Impressoras", "Conferencia", "HP",
            "[Geral]\r\nA=1\r\n\r\n[Impressoras]\r\nConferencia=HP\r\n");
        row("last line without end", "[Geral]\r\nA=1", "Geral", "B", "2", "[Geral]\r\nA=1\r\nB=2\r\n");
        row("LF file keeps its lines", "[Geral]\nA=1\nB=2\n", "Geral", "A", "9", "[Geral]\nA=9\nB=2\n");
        row("Windows-1252", QByteArray(), "Seção", "Nome", "João € ✓",
            "[Se\xe7\xe3o]\r\nNome=Jo\xe3o \x80 ?\r\n");
    }
    void write() {
        QFETCH(QByteArray, before);
        QFETCH(QString, section);
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(QByteArray, after);
        if (!before.isNull())
            writeBytes(m_file, before);
        QVERIFY(WritePrivateProfileString(section, key, value, m_file));
        QCOMPARE(readBytes(m_file), after);
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
