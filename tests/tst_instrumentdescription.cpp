// Tests of instrument description files: the built-in supply, the round trip and every refusal.
#include "instrumentdescription.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

using namespace tarn::sim;

namespace {

QJsonObject builtInObject()
{
    return QJsonDocument::fromJson(InstrumentDescription::builtIn().toJson()).object();
}

QByteArray withField(const QString &path, const QJsonValue &value)
{
    QJsonObject root = builtInObject();
    const QStringList keys = path.split(QLatin1Char('.'));
    if (keys.size() == 1) {
        if (value.isUndefined())
            root.remove(path);
        else
            root.insert(path, value);
    } else if (keys.first() == QLatin1String("identity")) {
        QJsonObject identity = root.value(keys.first()).toObject();
        if (value.isUndefined())
            identity.remove(keys.at(1));
        else
            identity.insert(keys.at(1), value);
        root.insert(keys.first(), identity);
    } else { // channels.N.key
        QJsonArray channels = root.value(QStringLiteral("channels")).toArray();
        QJsonObject channel = channels.at(keys.at(1).toInt()).toObject();
        if (value.isUndefined())
            channel.remove(keys.at(2));
        else
            channel.insert(keys.at(2), value);
        channels.replace(keys.at(1).toInt(), channel);
        root.insert(QStringLiteral("channels"), channels);
    }
    return QJsonDocument(root).toJson();
}

// The array form of a List, with one of its groups replaced (or left out, for Undefined).
QJsonObject listArrays(const QString &group = {}, const QJsonValue &value = {})
{
    auto words = [](const char *voltage, const char *current, const char *time) {
        return QJsonObject{{"voltage", voltage}, {"current", current}, {"time", time}};
    };
    QJsonObject arrays{
        {"maxValues", 100},
        {"write", words("LIST:VOLT %1", "LIST:CURR %1", "LIST:DWEL %1")},
        {"append", words("LIST:VOLT:APP %1", "LIST:CURR:APP %1", "LIST:DWEL:APP %1")},
        {"read", words("LIST:VOLT? %1,%2", "LIST:CURR? %1,%2", "LIST:DWEL? %1,%2")}};
    if (value.isUndefined())
        arrays.remove(group);
    else if (!group.isEmpty())
        arrays.insert(group, value);
    return arrays;
}

} // namespace

class TestInstrumentDescription : public QObject
{
    Q_OBJECT

private slots:
    void jsonRoundTripKeepsEveryField();
    void exampleFileIsTheBuiltInSupply();
    void arrayExampleSaysHowListsTravel();
    void damagedDescriptionsAreRefused_data();
    void damagedDescriptionsAreRefused();
    void aMillionChannelsAreRefusedBeforeTheyAreRead();
    void unreadableFileNamesThePath();
};

void TestInstrumentDescription::jsonRoundTripKeepsEveryField()
{
    InstrumentDescription d = InstrumentDescription::builtIn();
    d.timeDecimals = 2;
    d.timeMin = 0.05;
    d.voltageDecimals = 4;
    d.currentDecimals = 1;
    d.maxCount = 100;
    d.channels.resize(1);
    d.channels[0] = {QStringLiteral("Out"), {1.5, 60.0}, {0.0, 10.0}};
    d.commands.insert(QStringLiteral("listStep"), QStringLiteral("LIST:DATA %1,%2,%3,%4"));

    QString error;
    const auto back = InstrumentDescription::fromJson(d.toJson(), &error);
    QVERIFY2(back.has_value(), qPrintable(error));
    QCOMPARE(back->toJson(), d.toJson());
    QCOMPARE(back->channels.at(0).voltage.min, 1.5);
    QCOMPARE(back->commands.value(QStringLiteral("listStep")),
             QStringLiteral("LIST:DATA %1,%2,%3,%4"));
}

void TestInstrumentDescription::exampleFileIsTheBuiltInSupply()
{
    QString error;
    const auto example = InstrumentDescription::fromFile(
        QStringLiteral(TARN_SOURCE_DIR "/simulator/instruments/simulated-supply.json"), &error);
    QVERIFY2(example.has_value(), qPrintable(error));
    QCOMPARE(example->toJson(), InstrumentDescription::builtIn().toJson());
}

void TestInstrumentDescription::arrayExampleSaysHowListsTravel()
{
    QString error;
    const auto arrays = InstrumentDescription::fromFile(
        QStringLiteral(TARN_SOURCE_DIR "/simulator/instruments/array-supply.json"), &error);
    QVERIFY2(arrays.has_value(), qPrintable(error));
    const ListArrays &words = arrays->listArrays;
    QCOMPARE(words.maxValues, 100);
    QCOMPARE(QStringList({words.writeTime, words.appendCurrent, words.readVoltage}),
             QStringList({"LIST:DWEL %1", "LIST:CURR:APP %1", "LIST:VOLT? %1,%2"}));
    QCOMPARE(InstrumentDescription::fromJson(arrays->toJson(), &error)->toJson(), arrays->toJson());
    QVERIFY(!InstrumentDescription::builtIn().listArrays.used());
}

void TestInstrumentDescription::damagedDescriptionsAreRefused_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");

    QTest::newRow("not JSON") << QByteArray("{\"timeDecimals\": 3,")
                              << "not JSON at byte 19: unterminated object";
    QTest::newRow("an array") << QByteArray("[]") << "the description must be a JSON object";
    QTest::newRow("no identity") << withField("identity", QJsonValue::Undefined)
                                 << "field \"identity\": is missing";
    QTest::newRow("no serial") << withField("identity.serial", QJsonValue::Undefined)
                               << "field \"identity.serial\": is missing";
    QTest::newRow("comma in the model") << withField("identity.model", "A,B")
                                        << "field \"identity.model\": must not hold commas, "
                                           "semicolons, quotes or control characters";
    QTest::newRow("empty maker") << withField("identity.maker", " ")
                                 << "field \"identity.maker\": must not be empty";
    QTest::newRow("no time decimals")
        << withField("timeDecimals", QJsonValue::Undefined) << "field \"timeDecimals\": is missing";
    QTest::newRow("time decimals as text")
        << withField("timeDecimals", "3") << "field \"timeDecimals\": must be a number";
    QTest::newRow("fractional decimals")
        << withField("voltageDecimals", 2.5) << "field \"voltageDecimals\": must be a whole number";
    QTest::newRow("too many decimals")
        << withField("currentDecimals", 7) << "field \"currentDecimals\": must lie in 0..6";
    QTest::newRow("time below the quantum") << withField("timeMin", 0.0001)
                                            << "field \"timeMin\": must be at least the time "
                                               "quantum 0.001 s";
    QTest::newRow("time limits swapped")
        << withField("timeMax", 0.0005) << "field \"timeMax\": must not be below timeMin";
    QTest::newRow("no steps") << withField("maxCount", 0)
                              << "field \"maxCount\": must lie in 1..100000";
    QTest::newRow("no channels") << withField("channels", QJsonArray())
                                 << "field \"channels\": must hold at least one channel";
    QTest::newRow("channels not a list")
        << withField("channels", 6) << "field \"channels\": must be an array";
    QTest::newRow("channel without current")
        << withField("channels.4.current", QJsonValue::Undefined)
        << "field \"channels[4].current\": is missing";
    QTest::newRow("range of one number") << withField("channels.0.voltage", QJsonArray{32})
                                         << "field \"channels[0].voltage\": must be two numbers "
                                            "[minimum, maximum]";
    QTest::newRow("range upside down") << withField("channels.1.current", QJsonArray{3, 1})
                                       << "field \"channels[1].current\": must satisfy 0 <= "
                                          "minimum < maximum";
    QTest::newRow("negative range") << withField("channels.1.voltage", QJsonArray{-5, 5})
                                    << "field \"channels[1].voltage\": must satisfy 0 <= minimum "
                                       "< maximum";
    QTest::newRow("twice the same name") << withField("channels.2.name", "ch1")
                                         << "field \"channels[2].name\": \"ch1\" names another "
                                            "channel too";
    QTest::newRow("arrays of no values") << withField("listArrays", listArrays("maxValues", 0))
                                         << "field \"listArrays.maxValues\": must lie in 1..1000";
    QTest::newRow("arrays without append words")
        << withField("listArrays", listArrays("append", QJsonValue::Undefined))
        << "field \"listArrays.append\": is missing";
    QTest::newRow("array word without its values")
        << withField("listArrays",
                     listArrays("write",
                                QJsonObject{{"voltage", "LIST:VOLT %1"},
                                            {"current", "LIST:CURR"},
                                            {"time", "LIST:DWEL %1"}}))
        << "field \"listArrays.write.current\": must hold %1 once, for the values";
    QTest::newRow("read word without a count")
        << withField("listArrays",
                     listArrays("read",
                                QJsonObject{{"voltage", "LIST:VOLT? %1"},
                                            {"current", "LIST:CURR? %1,%2"},
                                            {"time", "LIST:DWEL? %1,%2"}}))
        << "field \"listArrays.read.voltage\": must hold %1 (the first step) and %2 (how many) "
           "once each";
    QTest::newRow("command word not a text") << withField("commands", QJsonObject{{"listStep", 1}})
                                             << "field \"commands.listStep\": must be a text";
}

void TestInstrumentDescription::damagedDescriptionsAreRefused()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, error);

    QString message;
    QVERIFY(!InstrumentDescription::fromJson(json, &message).has_value());
    QCOMPARE(message, error);
}

void TestInstrumentDescription::aMillionChannelsAreRefusedBeforeTheyAreRead()
{
    QByteArray json = InstrumentDescription::builtIn().toJson();
    const QByteArray channel = "{\"name\":\"X\",\"voltage\":[0,1],\"current\":[0,1]},";
    QByteArray many;
    many.reserve(channel.size() * 1000000);
    for (int i = 0; i < 1000000; ++i)
        many += channel;
    json.replace("\"channels\": [", "\"channels\": [" + many);

    QString message;
    QVERIFY(!InstrumentDescription::fromJson(json, &message).has_value());
    QCOMPARE(message, QStringLiteral("the description is larger than 1048576 bytes"));

    QString small;
    const QByteArray seventy
        = QByteArray("{\"identity\":{\"maker\":\"a\",\"model\":\"b\",\"serial\":"
                     "\"c\",\"firmware\":\"d\"},\"timeDecimals\":3,\"timeMin\":"
                     "0.001,\"timeMax\":1,\"voltageDecimals\":3,"
                     "\"currentDecimals\":3,\"maxCount\":1,\"channels\":[")
          + channel.repeated(70).chopped(1) + "]}";
    QVERIFY(!InstrumentDescription::fromJson(seventy, &small).has_value());
    QCOMPARE(small, QStringLiteral("field \"channels\": holds more than 64 channels"));
}

void TestInstrumentDescription::unreadableFileNamesThePath()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("missing.json"));
    QString message;
    QVERIFY(!InstrumentDescription::fromFile(path, &message).has_value());
    QVERIFY2(message.startsWith(QStringLiteral("cannot read ") + path), qPrintable(message));
}

QTEST_APPLESS_MAIN(TestInstrumentDescription)
#include "tst_instrumentdescription.moc"
