// Tests of the template vectors' byte form, of loading damaged bytes, and of the meta-type
// registration that lets QVariant and QSettings carry the vectors.
#include "records.h"
#include "templateparam.h"
#include "templatestream.h"

#include <QBuffer>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

using namespace tarn2::specific::orvo5000::programmer;

using ListParams = QVector<ListTemplateParam>;
using DelayerParams = QVector<DelayerTemplateParam>;

namespace {

ListParams resetLists()
{
    ListParams params;
    resetListTemplateParams(params);
    return params;
}

DelayerParams resetDelayers()
{
    DelayerParams params;
    resetDelayerTemplateParams(params);
    return params;
}

template<typename T> QByteArray save(const T &value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

// A List template with a distinct value in every field, and its bytes written out by hand.
ListTemplateParam distinctList()
{
    return ListTemplateParam{
        ListRamp, 1, 2.5, 0.5, -1.0, 4.0, 0.25, 8.0, 30.0, 1.0, 3, true, 15.0, 4, 50, 10, 6, 7};
}

const QByteArray distinctListBytes = QByteArray::fromHex("00000001"         // count
                                                         "00000002"         // type
                                                         "00000001"         // object
                                                         "4004000000000000" // voltage 2.5
                                                         "3fe0000000000000" // current 0.5
                                                         "bff0000000000000" // voltageMin -1
                                                         "4010000000000000" // voltageMax 4
                                                         "3fd0000000000000" // currentMin 0.25
                                                         "4020000000000000" // currentMax 8
                                                         "403e000000000000" // period 30
                                                         "3ff0000000000000" // interval 1
                                                         "00000003"         // cycles
                                                         "01"               // inverted
                                                         "402e000000000000" // width 15
                                                         "00000004"         // pulseCount
                                                         "00000032"         // symmetry 50
                                                         "0000000a"         // steps
                                                         "00000006"         // expRate
                                                         "00000007");       // expGroups

DelayerTemplateParam distinctDelayer()
{
    return DelayerTemplateParam{DelayerDecline, 1, 10, 2.0, 0.5, 1.0, 0.25, 1.5, -1.0};
}

const QByteArray distinctDelayerBytes = QByteArray::fromHex("00000001"           // count
                                                            "00000002"           // type
                                                            "00000001"           // pattern
                                                            "0000000a"           // groups
                                                            "4000000000000000"   // onTime 2
                                                            "3fe0000000000000"   // offTime 0.5
                                                            "3ff0000000000000"   // incBaseValue 1
                                                            "3fd0000000000000"   // incStep 0.25
                                                            "3ff8000000000000"   // decBaseValue 1.5
                                                            "bff0000000000000"); // decStep -1

// Loads `bytes` into a vector that held something before, as the dialog's vectors do.
template<typename T> QDataStream::Status load(const QByteArray &bytes, QVector<T> &params)
{
    params = QVector<T>(2);
    QDataStream stream(bytes);
    stream >> params;
    return stream.status();
}

} // namespace

class TestTemplateStream : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void registeredWhenLoaded();
    void registeringAgainIsHarmless();
    void roundTripSizes();
    void exactBytes();
    void damagedStreams_data();
    void damagedStreams();
    void overclaimingCountAllocatesNothing();
    void readTransaction();
    void failedStatusOutsideTransaction();
    void variantByRegisteredName();
    void settingsRoundTrip();
};

void TestTemplateStream::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestTemplateStream::registeredWhenLoaded()
{
    // Nothing in this test has registered anything yet: loading the library did.
    const int listType = QMetaType::type("QVector<programmer::ListTemplateParam>");
    const int delayerType = QMetaType::type("QVector<programmer::DelayerTemplateParam>");
    QVERIFY(listType != QMetaType::UnknownType);
    QVERIFY(delayerType != QMetaType::UnknownType);
    QCOMPARE(listType, qMetaTypeId<ListParams>());
    QCOMPARE(delayerType, qMetaTypeId<DelayerParams>());

    const char *const records[] = {
        "tarn2::specific::orvo5000::programmer::ProgrammerData",
        "tarn2::specific::orvo5000::programmer::ListData",
        "tarn2::specific::orvo5000::programmer::DelayerData",
        "tarn2::specific::orvo5000::programmer::UploadParam",
        "tarn2::specific::orvo5000::programmer::ListTemplateParam",
        "tarn2::specific::orvo5000::programmer::DelayerTemplateParam",
    };
    for (const char *name : records)
        QVERIFY2(QMetaType::type(name) != QMetaType::UnknownType, name);
    QCOMPARE(QMetaType::type(records[1]), qMetaTypeId<ListData>());
}

void TestTemplateStream::registeringAgainIsHarmless()
{
    const int before = qMetaTypeId<ListParams>();
    registerProgrammerMetaTypes();
    registerProgrammerMetaTypes();
    QCOMPARE(qMetaTypeId<ListParams>(), before);
    QCOMPARE(QMetaType::type("QVector<programmer::ListTemplateParam>"), before);
    QCOMPARE(QMetaType::type("QVector<programmer::DelayerTemplateParam>"),
             qMetaTypeId<DelayerParams>());
}

void TestTemplateStream::roundTripSizes()
{
    ListParams lists = resetLists();
    lists[2] = distinctList();
    const QByteArray listBytes = save(lists);
    QCOMPARE(listBytes.size(), 4 + 8 * 105);
    ListParams loadedLists;
    QCOMPARE(load(listBytes, loadedLists), QDataStream::Ok);
    QCOMPARE(loadedLists, lists);

    DelayerParams delayers = resetDelayers();
    delayers[1] = distinctDelayer();
    const QByteArray delayerBytes = save(delayers);
    QCOMPARE(delayerBytes.size(), 4 + 3 * 60);
    DelayerParams loadedDelayers;
    QCOMPARE(load(delayerBytes, loadedDelayers), QDataStream::Ok);
    QCOMPARE(loadedDelayers, delayers);

    QCOMPARE(save(ListParams()), QByteArray::fromHex("00000000"));
}

void TestTemplateStream::exactBytes()
{
    QCOMPARE(save(ListParams{distinctList()}), distinctListBytes);
    QCOMPARE(save(DelayerParams{distinctDelayer()}), distinctDelayerBytes);

    ListParams lists;
    QCOMPARE(load(distinctListBytes, lists), QDataStream::Ok);
    QCOMPARE(lists, ListParams{distinctList()});
    QCOMPARE(lists.at(0).inverted, true);
    DelayerParams delayers;
    QCOMPARE(load(distinctDelayerBytes, delayers), QDataStream::Ok);
    QCOMPARE(delayers, DelayerParams{distinctDelayer()});
}

void TestTemplateStream::damagedStreams_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("status");

    const QByteArray lists = save(resetLists());
    const QByteArray delayers = save(resetDelayers());
    const int pastEnd = QDataStream::ReadPastEnd;

    QTest::newRow("list: nothing") << false << QByteArray() << pastEnd;
    QTest::newRow("list: half a count") << false << lists.left(2) << pastEnd;
    QTest::newRow("list: cut inside the fifth element")
        << false << lists.left(4 + 4 * 105 + 50) << pastEnd;
    QTest::newRow("list: last byte missing") << false << lists.left(lists.size() - 1) << pastEnd;
    QTest::newRow("list: count one too high")
        << false << QByteArray::fromHex("00000009") + lists.mid(4) << pastEnd;
    QTest::newRow("list: negative count") << false << QByteArray::fromHex("ffffffff") + lists.mid(4)
                                          << int(QDataStream::ReadCorruptData);
    QTest::newRow("delayer: cut inside the second element")
        << true << delayers.left(4 + 60 + 30) << pastEnd;
    QTest::newRow("delayer: last byte missing")
        << true << delayers.left(delayers.size() - 1) << pastEnd;
    QTest::newRow("delayer: negative count")
        << true << QByteArray::fromHex("80000000") << int(QDataStream::ReadCorruptData);
    QTest::newRow("list: zero count")
        << false << QByteArray::fromHex("00000000") << int(QDataStream::Ok);
    QTest::newRow("delayer: zero count")
        << true << QByteArray::fromHex("00000000") << int(QDataStream::Ok);
}

void TestTemplateStream::damagedStreams()
{
    QFETCH(bool, delayer);
    QFETCH(QByteArray, bytes);
    QFETCH(int, status);

    if (delayer) {
        DelayerParams params;
        QCOMPARE(int(load(bytes, params)), status);
        QVERIFY(params.isEmpty());
    } else {
        ListParams params;
        QCOMPARE(int(load(bytes, params)), status);
        QVERIFY(params.isEmpty());
    }
}

void TestTemplateStream::overclaimingCountAllocatesNothing()
{
    // Reserving for 2^31 - 1 elements would need hundreds of gigabytes: the count is checked
    // against what the device holds before anything is allocated.
    const QByteArray bytes = QByteArray::fromHex("7fffffff") + QByteArray(10, '\0');
    QDataStream stream(bytes);
    ListParams lists;
    stream >> lists;
    QCOMPARE(stream.status(), QDataStream::ReadPastEnd);
    QVERIFY(lists.isEmpty());
    QCOMPARE(lists.capacity(), 0);

    QDataStream again(bytes);
    DelayerParams delayers;
    again >> delayers;
    QCOMPARE(again.status(), QDataStream::ReadPastEnd);
    QVERIFY(delayers.isEmpty());
    QCOMPARE(delayers.capacity(), 0);
}

void TestTemplateStream::readTransaction()
{
    const DelayerParams params = resetDelayers();
    const QByteArray bytes = save(params);

    // The first half arrives: the read fails, and the transaction rolls the device back.
    QBuffer buffer;
    buffer.setData(bytes.left(100));
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QDataStream stream(&buffer);
    DelayerParams loaded;
    stream.startTransaction();
    stream >> loaded;
    QVERIFY(loaded.isEmpty());
    QCOMPARE(stream.status(), QDataStream::ReadPastEnd);
    QVERIFY(!stream.commitTransaction());
    QCOMPARE(buffer.pos(), qint64(0));

    // The rest arrives: the same read now succeeds.
    buffer.buffer().append(bytes.mid(100));
    stream.startTransaction();
    stream >> loaded;
    QVERIFY(stream.commitTransaction());
    QCOMPARE(loaded, params);
    QCOMPARE(buffer.pos(), qint64(bytes.size()));

    // Inside a transaction a status that failed earlier fails the read too.
    buffer.seek(0);
    stream.startTransaction();
    stream.setStatus(QDataStream::ReadCorruptData);
    stream >> loaded;
    QVERIFY(loaded.isEmpty());
    QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
    QVERIFY(!stream.commitTransaction());
}

void TestTemplateStream::failedStatusOutsideTransaction()
{
    // Outside a transaction the read goes ahead, and the earlier failure is kept for the caller.
    const ListParams params = resetLists();
    QDataStream stream(save(params));
    stream.setStatus(QDataStream::ReadCorruptData);
    ListParams loaded;
    stream >> loaded;
    QCOMPARE(loaded, params);
    QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
}

void TestTemplateStream::variantByRegisteredName()
{
    // A variant stored under the registered short name loads as the vector type.
    const DelayerParams params{distinctDelayer()};
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << quint32(QMetaType::User) << qint8(0) << "QVector<programmer::DelayerTemplateParam>"
            << params;
    }
    QDataStream in(bytes);
    QVariant variant;
    in >> variant;
    QCOMPARE(in.status(), QDataStream::Ok);
    QCOMPARE(variant.userType(), qMetaTypeId<DelayerParams>());
    QCOMPARE(variant.value<DelayerParams>(), params);

    // And a variant written by the stream operators comes back whole.
    const QVariant lists = QVariant::fromValue(resetLists());
    QDataStream reread(save(lists));
    QVariant loaded;
    reread >> loaded;
    QCOMPARE(reread.status(), QDataStream::Ok);
    QCOMPARE(loaded.value<ListParams>(), resetLists());
}

void TestTemplateStream::settingsRoundTrip()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("programmer.ini"));

    ListParams lists = resetLists();
    lists[0] = distinctList();
    {
        QSettings settings(path, QSettings::IniFormat);
        settings.beginGroup(QStringLiteral("bench/Programmer"));
        settings.setValue(QStringLiteral("List Template Params"), QVariant::fromValue(lists));
        settings.setValue(QStringLiteral("Delayer Template Params"),
                          QVariant::fromValue(resetDelayers()));
        settings.endGroup();
        settings.sync();
        QCOMPARE(settings.status(), QSettings::NoError);
    }

    QSettings settings(path, QSettings::IniFormat);
    settings.beginGroup(QStringLiteral("bench/Programmer"));
    QCOMPARE(settings.value(QStringLiteral("List Template Params")).value<ListParams>(), lists);
    QCOMPARE(settings.value(QStringLiteral("Delayer Template Params")).value<DelayerParams>(),
             resetDelayers());
}

QTEST_APPLESS_MAIN(TestTemplateStream)
#include "tst_templatestream.moc"
