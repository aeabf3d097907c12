// Tests of the host's line-based text files: the exact bytes written and the lines read back.
#include <character.h>

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using tarn2::util::character::Character;

#if defined(__SANITIZE_ADDRESS__)
static constexpr qint64 budgetMsec = 10000; // sanitizers slow every memory access down many times
#else
// Generous enough for a busy two-core machine; a quadratic pass over a million lines takes minutes.
static constexpr qint64 budgetMsec = 4000;
#endif

class TestCharacter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale::c());
        QVERIFY(m_dir.isValid());
    }
    void bytesAndLines_data();
    void bytesAndLines();
    void unusablePath();
    void millionLines();

private:
    QTemporaryDir m_dir;
};

void TestCharacter::bytesAndLines_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("saved"); // whether saving the lines writes exactly these bytes

    QTest::newRow("two lines") << QStringList{"a", "b"} << QByteArray("a\nb\n") << true;
    QTest::newRow("no lines") << QStringList{} << QByteArray("") << true;
    QTest::newRow("empty lines and spaces kept")
        << QStringList{" 1,5 ", "", "\t"} << QByteArray(" 1,5 \n\n\t\n") << true;
    QTest::newRow("lone CR inside a line") << QStringList{"a\rb"} << QByteArray("a\rb\n") << true;
    QTest::newRow("UTF-8") << QStringList{QStringLiteral("\u00b5s \u20ac")}
                           << QByteArray("\xc2\xb5s \xe2\x82\xac\n") << true;
    QTest::newRow("CRLF, spaces kept")
        << QStringList{" a ", "", "b"} << QByteArray(" a \r\n\r\nb\r\n") << false;
    QTest::newRow("mixed, last unterminated")
        << QStringList{"a", "b", "c"} << QByteArray("a\r\nb\nc") << false;
}

void TestCharacter::bytesAndLines()
{
    QFETCH(QStringList, lines);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, saved);

    // Saving must truncate what stood in the file before.
    QFile file(m_dir.filePath(QStringLiteral("lines.csv")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(saved ? QByteArray(4096, 'x') + "\nlast line\n" : bytes);
    file.close();
    if (saved) {
        QVERIFY(Character::csvSave(file.fileName(), lines));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), bytes);
        file.close();
    }
    QCOMPARE(Character::csvLoad(file.fileName()), lines);
}

void TestCharacter::unusablePath()
{
    // A directory, and a file in a directory that does not exist.
    for (const QString &path : {m_dir.path(), QStringLiteral("/nonexistent/dir/file.csv")}) {
        QVERIFY(!Character::csvSave(path, {QStringLiteral("a")}));
        QCOMPARE(Character::csvLoad(path), QStringList{});
    }
}

void TestCharacter::millionLines()
{
    QList<QString> lines;
    for (int i = 0; i < 1000000; ++i)
        lines.append(QString::number(i) + QStringLiteral(",12.345,0.100"));
    const QString path = m_dir.filePath(QStringLiteral("million.csv"));

    QElapsedTimer clock;
    clock.start();
    QVERIFY(Character::csvSave(path, lines));
    QVERIFY2(clock.elapsed() < budgetMsec, QByteArray::number(clock.elapsed()).constData());
    clock.restart();
    const QList<QString> loaded = Character::csvLoad(path);
    QVERIFY2(clock.elapsed() < budgetMsec, QByteArray::number(clock.elapsed()).constData());
    QCOMPARE(loaded, lines);
}

QTEST_APPLESS_MAIN(TestCharacter)
#include "tst_character.moc"
