#include "platform/Profile.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <functional>

#ifdef Q_OS_UNIX
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

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

// Runs the write as a user whom the file modes bind. Root is refused nothing, so a root test
// writes from a child that has become nobody. -1 when that can't be done here.
int writeAsUser(const std::function<bool()>& write) {
#ifndef Q_OS_UNIX
    Q_UNUSED(write);
    return -1;
#else
    if (::geteuid() != 0)
        return write() ? 1 : 0;
    const pid_t child = ::fork();
    if (child < 0)
        return -1;
    if (child == 0) {
        const uid_t nobody = 65534;
        if (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0)
            ::_exit(2);
        ::_exit(write() ? 1 : 0);
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) > 1)
        return -1;
    return WEXITSTATUS(status);
#endif
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

    // The file is rewritten where it is, as the original did: a writable file in a folder the user
    // can't write takes the value; a read-only one keeps what it had, and the write says so.
    void writeWhereTheUserMay_data() {
        QTest::addColumn<int>("folderMode");
        QTest::addColumn<int>("fileMode");
        QTest::addColumn<bool>("written");
        QTest::newRow("writable file, read-only folder") << 0555 << 0666 << true;
        QTest::newRow("read-only file") << 0777 << 0444 << false;
    }
    void writeWhereTheUserMay() {
        QFETCH(int, folderMode);
        QFETCH(int, fileMode);
        QFETCH(bool, written);
        QTemporaryDir dir; // its own, open to the other user
        QVERIFY(QFile::setPermissions(dir.path(), QFile::Permissions(0x7555)));
        const QString folder = dir.filePath(QStringLiteral("atualizador"));
        QVERIFY(QDir().mkdir(folder));
        const QString file = folder + QStringLiteral("/atualizador.ini");
        const QByteArray before("[MODULO]\r\nWHO=\r\nDONE=0\r\nPATH=\r\nVERSION=");
        writeBytes(file, before);
        const auto mode = [](int unix) {
            return QFile::Permissions((unix & 0444 ? 0x4444 : 0) | (unix & 0222 ? 0x2222 : 0) |
                                      (unix & 0111 ? 0x1111 : 0));
        };
        QVERIFY(QFile::setPermissions(file, mode(fileMode)));
        QVERIFY(QFile::setPermissions(folder, mode(folderMode)));
        const int result = writeAsUser([&] {
            return WritePrivateProfileString(QStringLiteral("MODULO"), QStringLiteral("WHO"),
                                             QStringLiteral("ZARVEL"), file);
        });
        QFile::setPermissions(folder, mode(0777));
        if (result < 0)
            QSKIP("Needs a user bound by file modes: root here could not become nobody");
        QCOMPARE(result == 1, written);
        QCOMPARE(readBytes(file),
                 written ? QByteArray("[MODULO]\r\nWHO=ZARVEL\r\nDONE=0\r\nPATH=\r\nVERSION=") : before);
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
