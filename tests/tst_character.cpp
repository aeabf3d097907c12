// Tests of the host's line-based text files: the exact bytes written and the lines read back.
#include <character.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using tarn2::util::character::Character;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool sanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif
#else
constexpr bool sanitized = false;
#endif

QByteArray readAll(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArrayLiteral("<unreadable>");
    return file.readAll();
}

bool writeAll(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate)
           && file.write(bytes) == bytes.size();
}

} // namespace

class TestCharacter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void saveWritesExactBytes_data();
    void saveWritesExactBytes();
    void saveTruncatesLongerFile();
    void saveFailsWhereNothingCanBeWritten_data();
    void saveFailsWhereNothingCanBeWritten();
    void loadSplitsLines_data();
    void loadSplitsLines();
    void loadOfUnreadablePathIsEmpty_data();
    void loadOfUnreadablePathIsEmpty();
    void millionLines();

private:
    QTemporaryDir m_dir;
};

void TestCharacter::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    QVERIFY(m_dir.isValid());
}

void TestCharacter::saveWritesExactBytes_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("no lines") << QStringList{} << QByteArray();
    QTest::newRow("two lines") << QStringList{"a", "b"} << QByteArray("a\nb\n");
    QTest::newRow("one empty line") << QStringList{""} << QByteArray("\n");
    QTest::newRow("empty lines kept") << QStringList{"a", "", "", "b"} << QByteArray("a\n\n\nb\n");
    QTest::newRow("spaces kept") << QStringList{" 1.5 , 2 ", "\t"} << QByteArray(" 1.5 , 2 \n\t\n");
    QTest::newRow("non-ASCII as UTF-8")
        << QStringList{QString::fromUtf8("Gr\xc3\xbc\xc3\x9f"
                                         "e"),
                       QString(QChar(0x03a9)) + QStringLiteral(" 5")}
        << QByteArray("Gr\xc3\xbc\xc3\x9f"
                      "e\n\xce\xa9 5\n");
    QTest::newRow("sequence head") << QStringList{"LIST", "Cycles,1", "End Status,OFF"}
                                   << QByteArray("LIST\nCycles,1\nEnd Status,OFF\n");
}

void TestCharacter::saveWritesExactBytes()
{
    QFETCH(QStringList, lines);
    QFETCH(QByteArray, bytes);

    const QString path = m_dir.filePath(QStringLiteral("exact.csv"));
    QFile::remove(path);
    QVERIFY(Character::csvSave(path, lines));
    QCOMPARE(readAll(path), bytes);
    QCOMPARE(Character::csvLoad(path), lines);
}

void TestCharacter::saveTruncatesLongerFile()
{
    const QString path = m_dir.filePath(QStringLiteral("longer.csv"));
    QVERIFY(writeAll(path, QByteArray(4096, 'x') + "\nlast line\n"));

    QVERIFY(Character::csvSave(path, {QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(readAll(path), QByteArray("a\nb\n"));
}

void TestCharacter::saveFailsWhereNothingCanBeWritten_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("a directory") << m_dir.path();
    QTest::newRow("a missing directory") << QStringLiteral("/nonexistent/dir/file.csv");
    QTest::newRow("empty path") << QString();
}

void TestCharacter::saveFailsWhereNothingCanBeWritten()
{
    QFETCH(QString, path);

    QVERIFY(!Character::csvSave(path, {QStringLiteral("a")}));
    if (!path.isEmpty())
        QVERIFY(!QFileInfo(path).isFile());
}

void TestCharacter::loadSplitsLines_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("LF") << QByteArray("a\nb\n") << QStringList{"a", "b"};
    QTest::newRow("CRLF") << QByteArray("a\r\nb\r\n") << QStringList{"a", "b"};
    QTest::newRow("mixed") << QByteArray("a\r\nb\nc\r\n") << QStringList{"a", "b", "c"};
    QTest::newRow("last line unterminated") << QByteArray("a\nb") << QStringList{"a", "b"};
    QTest::newRow("single unterminated line") << QByteArray("1,2") << QStringList{"1,2"};
    QTest::newRow("empty lines kept")
        << QByteArray("a\n\n\r\nb\n") << QStringList{"a", "", "", "b"};
    QTest::newRow("only terminators") << QByteArray("\n\r\n") << QStringList{"", ""};
    QTest::newRow("spaces kept") << QByteArray(" a \t\n  \n") << QStringList{" a \t", "  "};
    QTest::newRow("lone CR inside a line") << QByteArray("a\rb\n") << QStringList{"a\rb"};
    QTest::newRow("UTF-8") << QByteArray("Gr\xc3\xbc\xc3\x9f"
                                         "e\n")
                           << QStringList{QString::fromUtf8("Gr\xc3\xbc\xc3\x9f"
                                                            "e")};
    QTest::newRow("empty file") << QByteArray() << QStringList{};
}

void TestCharacter::loadSplitsLines()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, lines);

    const QString path = m_dir.filePath(QStringLiteral("load.csv"));
    QVERIFY(writeAll(path, bytes));
    QCOMPARE(Character::csvLoad(path), lines);
}

void TestCharacter::loadOfUnreadablePathIsEmpty_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("missing file") << m_dir.filePath(QStringLiteral("missing.csv"));
    QTest::newRow("missing directory") << QStringLiteral("/nonexistent/dir/file.csv");
    QTest::newRow("a directory") << m_dir.path();
    QTest::newRow("empty path") << QString();
}

void TestCharacter::loadOfUnreadablePathIsEmpty()
{
    QFETCH(QString, path);

    QCOMPARE(Character::csvLoad(path), QStringList{});
}

void TestCharacter::millionLines()
{
    constexpr int count = 1000000;
    // Sanitizers slow every memory access down several times over.
    const qint64 budget = sanitized ? 10000 : 1000;

    QList<QString> lines;
    lines.reserve(count);
    for (int i = 0; i < count; ++i)
        lines.append(QString::number(i) + QStringLiteral(",12.345,0.100"));
    const QString path = m_dir.filePath(QStringLiteral("million.csv"));

    QElapsedTimer clock;
    clock.start();
    QVERIFY(Character::csvSave(path, lines));
    const qint64 saving = clock.elapsed();
    QVERIFY2(saving < budget, QByteArray::number(saving).constData());
    QCOMPARE(QFileInfo(path).size(), qint64(19888890));

    clock.restart();
    const QList<QString> loaded = Character::csvLoad(path);
    const qint64 loading = clock.elapsed();
    QVERIFY2(loading < budget, QByteArray::number(loading).constData());
    QCOMPARE(loaded.size(), count);
    QCOMPARE(loaded.first(), QStringLiteral("0,12.345,0.100"));
    QCOMPARE(loaded.at(count / 2), QStringLiteral("500000,12.345,0.100"));
    QCOMPARE(loaded.last(), QStringLiteral("999999,12.345,0.100"));
}

QTEST_APPLESS_MAIN(TestCharacter)
#include "tst_character.moc"
