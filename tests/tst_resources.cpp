// Checks that the module's icons are compiled into the library, register themselves when it loads,
// and resolve under both spellings the dialog uses (":/images/x.png" and ":images/x.png").
#include "helper.h"

#include <QFile>
#include <QIcon>
#include <QImage>
#include <QLocale>
#include <QPixmap>
#include <QtTest>

class TestResources final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void loads_data();
    void loads();
    void spellingsAgree_data();
    void spellingsAgree();
    void backgroundIsTransparent_data();
    void backgroundIsTransparent();
};

namespace {

// Every image path the dialog names, spelled exactly as the dialog spells it.
const char *const usedPaths[] = {
    ":/images/save.png",
    ":/images/open.png",
    ":/images/upload.png",
    ":images/sine2.png",
    ":images/pulse2.png",
    ":images/ramp2.png",
    ":images/stairup2.png",
    ":images/stairdown2.png",
    ":images/stairupdown2.png",
    ":images/exprise2.png",
    ":images/expfall2.png",
    ":images/append3.png",
    ":images/insert32.png",
    ":images/delete.png",
    ":images/deleteAll.png",
};

const char *const fileNames[] = {
    "save.png",
    "open.png",
    "upload.png",
    "sine2.png",
    "pulse2.png",
    "ramp2.png",
    "stairup2.png",
    "stairdown2.png",
    "stairupdown2.png",
    "exprise2.png",
    "expfall2.png",
    "append3.png",
    "insert32.png",
    "delete.png",
    "deleteAll.png",
};

} // namespace

void TestResources::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    // Nothing else here uses the library's code. Without one reference to it the linker may drop
    // the library (--as-needed), and its resources would never register; the test must see them
    // register on load, as a host does, so it never calls Q_INIT_RESOURCE.
    volatile auto keepLinked = &tarn2::specific::orvo5000::programmer::Helper::getInstance;
    QVERIFY(keepLinked != nullptr);
}

void TestResources::loads_data()
{
    QTest::addColumn<QString>("path");
    for (const char *path : usedPaths)
        QTest::newRow(path) << QString::fromLatin1(path);
}

void TestResources::loads()
{
    QFETCH(QString, path);
    QVERIFY(QFile::exists(path));

    const QPixmap pixmap(path);
    QVERIFY(!pixmap.isNull());
    QVERIFY(pixmap.width() >= 32);
    QCOMPARE(pixmap.height(), pixmap.width());

    // Buttons and the type combo box ask for 16 px; a single large image must scale down to it.
    const QIcon icon(path);
    QVERIFY(!icon.isNull());
    const QPixmap small = icon.pixmap(QSize(16, 16));
    QVERIFY(!small.isNull());
    QCOMPARE(small.size(), QSize(16, 16));
}

void TestResources::spellingsAgree_data()
{
    QTest::addColumn<QString>("fileName");
    for (const char *name : fileNames)
        QTest::newRow(name) << QString::fromLatin1(name);
}

// ":images/x" is resolved through the resource search path ("" + "/" + "images/x"), so it only
// works while the files sit at "/images/x" in the resource tree; both spellings must reach the
// same bytes.
void TestResources::spellingsAgree()
{
    QFETCH(QString, fileName);
    QFile rooted(QStringLiteral(":/images/") + fileName);
    QFile relative(QStringLiteral(":images/") + fileName);
    QVERIFY(rooted.open(QIODevice::ReadOnly));
    QVERIFY(relative.open(QIODevice::ReadOnly));
    const QByteArray bytes = rooted.readAll();
    QVERIFY(bytes.startsWith("\x89PNG\r\n\x1a\n"));
    QCOMPARE(relative.readAll(), bytes);
}

void TestResources::backgroundIsTransparent_data()
{
    loads_data();
}

// The icons sit on tool bars, buttons and menus of any colour: the corners must be see-through and
// something must be drawn in between.
void TestResources::backgroundIsTransparent()
{
    QFETCH(QString, path);
    const QImage image = QImage(path).convertToFormat(QImage::Format_ARGB32);
    QVERIFY(!image.isNull());
    QVERIFY(image.hasAlphaChannel());
    const int last = image.width() - 1;
    for (const QPoint corner : {QPoint(0, 0), QPoint(last, 0), QPoint(0, last), QPoint(last, last)})
        QCOMPARE(qAlpha(image.pixel(corner)), 0);

    int opaque = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 255)
                ++opaque;
        }
    }
    QVERIFY2(opaque >= image.width(), "the icon is (nearly) empty");
}

QTEST_MAIN(TestResources)
#include "tst_resources.moc"
