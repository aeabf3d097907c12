// Checks that the module's icons register themselves when the library loads and resolve under both
// spellings the dialog uses, ":/images/x.png" and ":images/x.png".
#include "helper.h"

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
    // Without one reference the linker may drop the library (--as-needed) and its resources would
    // never register; like a host, the test does not call Q_INIT_RESOURCE.
    volatile auto keepLinked = &tarn2::specific::orvo5000::programmer::Helper::getInstance;
    QVERIFY(keepLinked != nullptr);
}

void TestResources::loadsInBothSpellings_data()
{
    QTest::addColumn<QString>("name");
    const QString names
        = QStringLiteral("save open upload sine2 pulse2 ramp2 stairup2 stairdown2 "
                         "stairupdown2 exprise2 expfall2 append3 insert32 delete deleteAll");
    for (const QString &name : names.split(QLatin1Char(' ')))
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
