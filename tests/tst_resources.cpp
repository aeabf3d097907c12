// Checks that the module's icons register themselves when the library loads and resolve under both
// spellings the dialog uses, ":/images/x.png" and ":images/x.png".
#include <QLibrary>
#include <QPixmap>
#include <QtTest>

class TestResources final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void loadsInBothSpellings_data();
    void loadsInBothSpellings();
};

void TestResources::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    // The module is loaded as a host loads it, by its file and without a set-up call such as
    // Q_INIT_RESOURCE: the icons must be there from loading alone. The test names no symbol of
    // the module, so nothing else loads it in a build that links only the libraries it needs.
    QLibrary module(QStringLiteral(TARN_MODULE));
    QVERIFY2(module.load(), qPrintable(module.errorString()));
}

void TestResources::loadsInBothSpellings_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names{"save",
                            "open",
                            "upload",
                            "sine2",
                            "pulse2",
                            "ramp2",
                            "stairup2",
                            "stairdown2",
                            "stairupdown2",
                            "exprise2",
                            "expfall2",
                            "append3",
                            "insert32",
                            "delete",
                            "deleteAll"};
    for (const QString &name : names)
        QTest::addRow("%s", qPrintable(name)) << name;
}

void TestResources::loadsInBothSpellings()
{
    QFETCH(QString, name);
    // ":images/x" resolves through the search path, so only while the file sits at "/images/x".
    QVERIFY(!QPixmap(QStringLiteral(":/images/%1.png").arg(name)).isNull());
    QVERIFY(!QPixmap(QStringLiteral(":images/%1.png").arg(name)).isNull());
}

QTEST_MAIN(TestResources)
#include "tst_resources.moc"
