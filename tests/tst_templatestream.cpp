// Tests of the template vectors' byte form, of loading damaged bytes, and of their meta-types.
#include "templateparam.h"
#include "templatestream.h"

#include <QtTest>

using namespace tarn2::specific::orvo5000::programmer;
using ListParams = QVector<ListTemplateParam>;
using DelayerParams = QVector<DelayerTemplateParam>;

template<typename T> static QByteArray save(const T &value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

// Loads into a vector that held something before, as the dialog's vectors do.
template<typename T> static int load(const QByteArray &bytes, QVector<T> &params)
{
    params = QVector<T>(2);
    QDataStream stream(bytes);
    stream >> params;
    return stream.status();
}

class TestTemplateStream : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void registeredNames();
    void roundTrip();
    void readStopsAtTheVectorsEnd_data();
    void readStopsAtTheVectorsEnd();
    void singlePrecisionStream();
    void damagedStreams_data();
    void damagedStreams();
    void readTransaction();
};

void TestTemplateStream::registeredNames()
{
    // Loading the library registered them all.
    // The settings carry the vectors under these names; they must be the canonical ones.
    QCOMPARE(QMetaType::typeName(qMetaTypeId<ListParams>()),
             "QVector<programmer::ListTemplateParam>");
    QCOMPARE(QMetaType::typeName(qMetaTypeId<DelayerParams>()),
             "QVector<programmer::DelayerTemplateParam>");
    const QByteArray scope = "tarn2::specific::orvo5000::programmer::";
    for (const QByteArray name : {"ProgrammerData", "ListData", "DelayerData", "UploadParam"})
        QVERIFY2(QMetaType::type(scope + name) != QMetaType::UnknownType, name);
    QCOMPARE(QMetaType::type(scope + "ListTemplateParam"), qMetaTypeId<ListTemplateParam>());
    QCOMPARE(QMetaType::type(scope + "DelayerTemplateParam"), qMetaTypeId<DelayerTemplateParam>());
    registerProgrammerMetaTypes(); // again: harmless
    QCOMPARE(QMetaType::type("QVector<programmer::ListTemplateParam>"), qMetaTypeId<ListParams>());
}

// Every double field goes out and comes back in double precision: values a float cannot hold
// come back bit for bit.
void TestTemplateStream::roundTrip()
{
    ListParams lists;
    DelayerParams delayers;
    resetListTemplateParams(lists);
    resetDelayerTemplateParams(delayers);
    lists[0]
        = {ListRamp, 1, 0.1, 0.2, -0.7, 0.9, 0.3, 3.2, 29.9, 1.1, 3, true, 14.7, 4, 50, 10, 6, 7};
    delayers[0] = {DelayerDecline, 1, 10, 2.1, 0.55, 1.3, 0.35, 1.7, -1.1};
    const QByteArray listBytes = save(lists);
    const QByteArray delayerBytes = save(delayers);
    QCOMPARE(listBytes.size(), 4 + 8 * 105);
    QCOMPARE(delayerBytes.size(), 4 + 3 * 60);
    // The count, then the first element's fields in declaration order.
    QCOMPARE(listBytes.left(4 + 105),
             QByteArray::fromHex("00000008 00000002 00000001 3fb999999999999a 3fc999999999999a"
                                 "bfe6666666666666 3feccccccccccccd 3fd3333333333333"
                                 "400999999999999a 403de66666666666 3ff199999999999a 00000003 01"
                                 "402d666666666666 00000004 00000032 0000000a 00000006 00000007"));
    QCOMPARE(delayerBytes.left(4 + 60),
             QByteArray::fromHex("00000003 00000002 00000001 0000000a 4000cccccccccccd"
                                 "3fe199999999999a 3ff4cccccccccccd 3fd6666666666666"
                                 "3ffb333333333333 bff199999999999a"));
    ListParams loadedLists;
    DelayerParams loadedDelayers;
    QCOMPARE(load(listBytes, loadedLists), QDataStream::Ok);
    QCOMPARE(load(delayerBytes, loadedDelayers), QDataStream::Ok);
    QCOMPARE(loadedLists, lists);
    QCOMPARE(loadedDelayers, delayers);
}

void TestTemplateStream::readStopsAtTheVectorsEnd_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<qint64>("vectorBytes");
    QTest::newRow("list") << false << qint64(4 + 3 * 105);
    QTest::newRow("delayer") << true << qint64(4 + 3 * 60);
}

// A read takes the vector's bytes and no more: what follows in the stream is still there.
void TestTemplateStream::readStopsAtTheVectorsEnd()
{
    QFETCH(bool, delayer);
    QFETCH(qint64, vectorBytes);
    const auto verify = [&](const auto &params) {
        QDataStream stream(save(params) + QByteArray::fromHex("5a5a5a5a"));
        std::decay_t<decltype(params)> loaded;
        stream >> loaded;
        QCOMPARE(stream.status(), QDataStream::Ok);
        QCOMPARE(loaded, params);
        QCOMPARE(stream.device()->pos(), vectorBytes);
        qint32 following = 0;
        stream >> following;
        QCOMPARE(following, 0x5a5a5a5a);
        QVERIFY(stream.atEnd());
    };
    delayer ? verify(DelayerParams(3)) : verify(ListParams(3));
}

// A stream the caller set to single precision holds each double in 4 bytes and reads back what
// it wrote; the check of the count against the bytes left counts 4 bytes too.
void TestTemplateStream::singlePrecisionStream()
{
    ListParams lists;
    resetListTemplateParams(lists); // the defaults need no more than single precision
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);
    out << lists;
    QCOMPARE(bytes.size(), 4 + 8 * (8 * 4 + 9 * 4 + 1));
    QDataStream in(bytes);
    in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    ListParams loaded;
    in >> loaded;
    QCOMPARE(in.status(), QDataStream::Ok);
    QCOMPARE(loaded, lists);
}

void TestTemplateStream::damagedStreams_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("status");

    const QByteArray lists = save(ListParams(8));
    // Reserving 2^31 - 1 elements would take hundreds of gigabytes.
    const QByteArray overclaim = QByteArray::fromHex("7fffffff") + QByteArray(10, '\0');
    const int pastEnd = QDataStream::ReadPastEnd;
    QTest::newRow("list, cut inside the fifth element")
        << false << lists.left(4 + 4 * 105 + 50) << pastEnd;
    QTest::newRow("list, over-claiming count") << false << overclaim << pastEnd;
    QTest::newRow("delayer, over-claiming count") << true << overclaim << pastEnd;
    // One element short of the count: refused before room is made for the count. With this many
    // elements, an estimate of the bytes an element takes that is short by a single byte lets
    // the count pass.
    QTest::newRow("list, 201 claimed, 200 there")
        << false << QByteArray::fromHex("000000c9") + save(ListParams(200)).mid(4) << pastEnd;
    QTest::newRow("delayer, 201 claimed, 200 there")
        << true << QByteArray::fromHex("000000c9") + save(DelayerParams(200)).mid(4) << pastEnd;
    QTest::newRow("negative count") << false << QByteArray::fromHex("ffffffff") + lists.mid(4)
                                    << int(QDataStream::ReadCorruptData);
}

void TestTemplateStream::damagedStreams()
{
    QFETCH(bool, delayer);
    QFETCH(QByteArray, bytes);
    QFETCH(int, status);

    // Emptied, and nothing reserved beyond what the vector held before.
    const auto verify = [&](auto params) {
        QCOMPARE(load(bytes, params), status);
        QVERIFY(params.isEmpty());
        QVERIFY(params.capacity() <= 2);
    };
    delayer ? verify(DelayerParams()) : verify(ListParams());
}

void TestTemplateStream::readTransaction()
{
    const DelayerParams params(3);
    QDataStream stream(save(params));
    DelayerParams loaded;
    // Inside a transaction a status that failed earlier fails the read...
    stream.startTransaction();
    stream.setStatus(QDataStream::ReadCorruptData);
    stream >> loaded;
    QVERIFY(loaded.isEmpty());
    QVERIFY(!stream.commitTransaction());
    // ...while outside one the read goes ahead and the failure is kept for the caller.
    QVERIFY(stream.device()->seek(0));
    stream >> loaded;
    QCOMPARE(loaded, params);
    QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
}

QTEST_APPLESS_MAIN(TestTemplateStream)
#include "tst_templatestream.moc"
