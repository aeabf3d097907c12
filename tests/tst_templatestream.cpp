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

void TestTemplateStream::roundTrip()
{
    ListParams lists;
    DelayerParams delayers;
    resetListTemplateParams(lists);
    resetDelayerTemplateParams(delayers);
    lists[0] = {ListRamp, 1, 2.5, 0.5, -1, 4, 0.25, 8, 30, 1, 3, true, 15, 4, 50, 10, 6, 7};
    delayers[0] = {DelayerDecline, 1, 10, 2.0, 0.5, 1.0, 0.25, 1.5, -1.0};
    const QByteArray listBytes = save(lists);
    const QByteArray delayerBytes = save(delayers);
    QCOMPARE(listBytes.size(), 4 + 8 * 105);
    QCOMPARE(delayerBytes.size(), 4 + 3 * 60);
    // The count, then the first element's fields in declaration order.
    QCOMPARE(listBytes.left(4 + 105),
             QByteArray::fromHex("00000008 00000002 00000001 4004000000000000 3fe0000000000000"
                                 "bff0000000000000 4010000000000000 3fd0000000000000"
                                 "4020000000000000 403e000000000000 3ff0000000000000 00000003 01"
                                 "402e000000000000 00000004 00000032 0000000a 00000006 00000007"));
    QCOMPARE(delayerBytes.left(4 + 60),
             QByteArray::fromHex("00000003 00000002 00000001 0000000a 4000000000000000"
                                 "3fe0000000000000 3ff0000000000000 3fd0000000000000"
                                 "3ff8000000000000 bff0000000000000"));
    ListParams loadedLists;
    DelayerParams loadedDelayers;
    QCOMPARE(load(listBytes, loadedLists), QDataStream::Ok);
    QCOMPARE(load(delayerBytes, loadedDelayers), QDataStream::Ok);
    QCOMPARE(loadedLists, lists);
    QCOMPARE(loadedDelayers, delayers);
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
