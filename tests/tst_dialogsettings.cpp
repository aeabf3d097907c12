// Tests of the template settings: what survives a dialog, per instrument, and what a damaged or
// foreign store gives.
#include "dialogprogrammer.h"
#include "templatestream.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

using namespace tarn2::specific::orvo5000::programmer;

using ListParams = QVector<ListTemplateParam>;
using DelayerParams = QVector<DelayerTemplateParam>;

namespace {

// The host's instrument: four channels of 0-32 V and 0-3.2 A, millisecond steps.
Option hostOption(const QString &name)
{
    Option option{name, 3, 0.001, 99999, 3, 3, {}, 2048, true, true, true};
    for (int i = 1; i <= 4; ++i)
        option.channels.append({QStringLiteral("CH%1").arg(i), {{0.0, 32.0}, {0.0, 3.2}}});
    return option;
}

ListParams listDefaults(int size = kListTemplateTypeCount, int changed = -1, double period = 0)
{
    ListParams params;
    resetListTemplateParams(params);
    params.resize(size);
    if (changed >= 0)
        params[changed].period = period;
    return params;
}

DelayerParams delayerDefaults(int changed = -1, double step = 0)
{
    DelayerParams params;
    resetDelayerTemplateParams(params);
    if (changed >= 0)
        params[changed].incStep = step;
    return params;
}

QString key(const QString &instrument, const char *name)
{
    return instrument + QStringLiteral("/Programmer/") + QLatin1String(name);
}

template<typename T> T *child(const DialogProgrammer &dialog, const char *name)
{
    return dialog.findChild<T *>(QLatin1String(name));
}

int shownType(const DialogProgrammer &dialog, const char *combo)
{
    return child<QComboBox>(dialog, combo)->currentIndex();
}

// Types in a value and leaves the box, as a user does.
void edit(const DialogProgrammer &dialog, const char *box, double value)
{
    auto *editor = child<QDoubleSpinBox>(dialog, box);
    editor->setValue(value);
    emit editor->editingFinished();
}

// What a closed dialog left in the store: the vectors and the two active types.
QString stored(const QString &instrument, const ListParams &list, const DelayerParams &delayer)
{
    const QSettings settings;
    const QVariant listValue = settings.value(key(instrument, "List Template Params"));
    const QVariant delayerValue = settings.value(key(instrument, "Delayer Template Params"));
    return QStringLiteral("list %1 type %2, delayer %3 type %4")
        .arg(QLatin1String(listValue.value<ListParams>() == list ? "as expected" : "other"))
        .arg(settings.value(key(instrument, "List Active Type")).toInt())
        .arg(
            QLatin1String(delayerValue.value<DelayerParams>() == delayer ? "as expected" : "other"))
        .arg(settings.value(key(instrument, "Delayer Active Type")).toInt());
}

// The INI form of a variant holding `typeName` and `payload`, every byte escaped, so that no
// other escaping rule of the format can get in the way. Settings stream variants in the oldest
// form, where a user type is numbered 127 and followed by its name.
QByteArray iniVariant(const QByteArray &typeName, const QByteArray &payload)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_0);
    stream << quint32(127) << typeName;
    QByteArray text = "@Variant(";
    for (const char c : bytes + payload)
        text += "\\x" + QByteArray::number(uchar(c), 16);
    return text + ')';
}

QByteArray payload(const ListParams &params)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << params;
    return bytes;
}

} // namespace

class TestDialogSettings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void perInstrument();
    void storedValues_data();
    void storedValues();
    void damagedFile_data();
    void damagedFile();

private:
    QTemporaryDir configDir;
};

void TestDialogSettings::initTestCase()
{
    QVERIFY(configDir.isValid());
    qputenv("XDG_CONFIG_HOME", configDir.path().toLocal8Bit());
    QCoreApplication::setOrganizationName(QStringLiteral("TarnTests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_dialogsettings"));
    QLocale::setDefault(QLocale::c());
    QVERIFY(QSettings().fileName().startsWith(configDir.path()));
}

void TestDialogSettings::perInstrument()
{
    const QString first = QStringLiteral("Bench A");
    const QString second = QStringLiteral("Bench B");
    {
        // A first opening shows the default Sine and Fix Time templates.
        DialogProgrammer dialog(hostOption(first));
        QCOMPARE(shownType(dialog, "cbbListTempType"), 0);
        QCOMPARE(shownType(dialog, "cbbDelayerTempType"), 0);
        QCOMPARE(child<QDoubleSpinBox>(dialog, "sbListTempPeriod0")->value(), 30.0);
        child<QComboBox>(dialog, "cbbListTempType")->setCurrentIndex(2);
        edit(dialog, "sbListTempPeriod2", 12.5);
        child<QComboBox>(dialog, "cbbDelayerTempType")->setCurrentIndex(1);
        edit(dialog, "sbDelayerTempIncStep", 2.5);
    }
    {
        DialogProgrammer dialog(hostOption(second));
        QCOMPARE(shownType(dialog, "cbbListTempType"), 0);
        child<QComboBox>(dialog, "cbbListTempType")->setCurrentIndex(1);
    }
    {
        DialogProgrammer dialog(hostOption(first));
        QCOMPARE(shownType(dialog, "cbbListTempType"), 2);
        QCOMPARE(child<QDoubleSpinBox>(dialog, "sbListTempPeriod2")->value(), 12.5);
        QCOMPARE(shownType(dialog, "cbbDelayerTempType"), 1);
        QCOMPARE(child<QDoubleSpinBox>(dialog, "sbDelayerTempIncStep")->value(), 2.5);
    }
    QCOMPARE(stored(first, listDefaults(8, 2, 12.5), delayerDefaults(1, 2.5)),
             QStringLiteral("list as expected type 2, delayer as expected type 1"));
    {
        DialogProgrammer dialog(hostOption(second));
        QCOMPARE(shownType(dialog, "cbbListTempType"), 1);
        QCOMPARE(child<QDoubleSpinBox>(dialog, "sbListTempPeriod1")->value(), 30.0);
    }
    QCOMPARE(stored(second, listDefaults(), delayerDefaults()),
             QStringLiteral("list as expected type 1, delayer as expected type 0"));
}

void TestDialogSettings::storedValues_data()
{
    QTest::addColumn<QVariant>("list");
    QTest::addColumn<int>("listType");
    QTest::addColumn<QVariant>("delayer");
    QTest::addColumn<int>("delayerType");
    QTest::addColumn<int>("shownList");
    QTest::addColumn<int>("shownDelayer");
    QTest::addColumn<ListParams>("keptList");
    QTest::addColumn<DelayerParams>("keptDelayer");

    const QVariant ramp = QVariant::fromValue(listDefaults(8, 2, 12.5));
    const QVariant increase = QVariant::fromValue(delayerDefaults(1, 2.5));
    QTest::newRow("as saved") << ramp << 2 << increase << 1 << 2 << 1 << listDefaults(8, 2, 12.5)
                              << delayerDefaults(1, 2.5);
    // A wrong length takes the active type with it; the other family is not affected.
    QTest::newRow("7 list templates")
        << QVariant::fromValue(listDefaults(7, 2, 12.5)) << 2 << increase << 1 << 0 << 1
        << listDefaults() << delayerDefaults(1, 2.5);
    QTest::newRow("no list templates") << QVariant::fromValue(ListParams()) << 2 << increase << 1
                                       << 0 << 1 << listDefaults() << delayerDefaults(1, 2.5);
    QTest::newRow("2 delayer templates")
        << ramp << 2 << QVariant::fromValue(delayerDefaults(1, 2.5).mid(0, 2)) << 1 << 2 << 0
        << listDefaults(8, 2, 12.5) << delayerDefaults();
    QTest::newRow("text for the list") << QVariant(QStringLiteral("Ramp")) << 2 << increase << 1
                                       << 0 << 1 << listDefaults() << delayerDefaults(1, 2.5);
    QTest::newRow("delayer templates for the list")
        << increase << 2 << increase << 1 << 0 << 1 << listDefaults() << delayerDefaults(1, 2.5);
    // Fields are used as stored; absurd ones must neither hang nor crash the dialog.
    ListParams absurd = listDefaults();
    absurd[3].period = absurd[3].voltageMax = 1e308;
    absurd[3].steps = absurd[3].cycles = INT_MAX;
    absurd[3].voltageMin = -1e308;
    QTest::newRow("absurd stair") << QVariant::fromValue(absurd) << 3 << increase << 1 << 3 << 1
                                  << absurd << delayerDefaults(1, 2.5);
    // An active type outside the templates falls back to the first one; the templates stay.
    QTest::newRow("list type 9") << ramp << 9 << increase << 1 << 0 << 1 << listDefaults(8, 2, 12.5)
                                 << delayerDefaults(1, 2.5);
    QTest::newRow("delayer type 3") << ramp << 2 << increase << 3 << 2 << 0
                                    << listDefaults(8, 2, 12.5) << delayerDefaults(1, 2.5);
}

void TestDialogSettings::storedValues()
{
    QFETCH(QVariant, list);
    QFETCH(int, listType);
    QFETCH(QVariant, delayer);
    QFETCH(int, delayerType);
    QFETCH(int, shownList);
    QFETCH(int, shownDelayer);
    QFETCH(ListParams, keptList);
    QFETCH(DelayerParams, keptDelayer);

    const QString instrument = QStringLiteral("Stored %1").arg(QTest::currentDataTag());
    {
        QSettings settings;
        settings.setValue(key(instrument, "List Template Params"), list);
        settings.setValue(key(instrument, "List Active Type"), listType);
        settings.setValue(key(instrument, "Delayer Template Params"), delayer);
        settings.setValue(key(instrument, "Delayer Active Type"), delayerType);
    }
    {
        DialogProgrammer dialog(hostOption(instrument));
        QCOMPARE(shownType(dialog, "cbbListTempType"), shownList);
        QCOMPARE(shownType(dialog, "cbbDelayerTempType"), shownDelayer);
    }
    QCOMPARE(stored(instrument, keptList, keptDelayer),
             QStringLiteral("list as expected type %1, delayer as expected type %2")
                 .arg(shownList)
                 .arg(shownDelayer));
}

void TestDialogSettings::damagedFile_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("shownList");
    QTest::addColumn<ListParams>("keptList");

    const QByteArray name = "QVector<programmer::ListTemplateParam>";
    const QByteArray valid = payload(listDefaults(8, 2, 12.5));
    QTest::newRow("valid") << iniVariant(name, valid) << 2 << listDefaults(8, 2, 12.5);
    QTest::newRow("cut in the fifth template")
        << iniVariant(name, valid.left(4 + 4 * 105 + 50)) << 0 << listDefaults();
    QTest::newRow("count 0x7fffffff")
        << iniVariant(name, QByteArray::fromHex("7fffffff") + valid.mid(4)) << 0 << listDefaults();
    QTest::newRow("negative count")
        << iniVariant(name, QByteArray::fromHex("80000000") + valid.mid(4)) << 0 << listDefaults();
    QTest::newRow("unknown type") << iniVariant("QVector<programmer::Nothing>", valid) << 0
                                  << listDefaults();
    QTest::newRow("garbage variant")
        << QByteArray("@Variant(\\x1\\x2garbage)") << 0 << listDefaults();
    QTest::newRow("garbage") << QByteArray("\\0\\xff@@Variant(") << 0 << listDefaults();
    QTest::newRow("empty") << QByteArray() << 0 << listDefaults();
}

void TestDialogSettings::damagedFile()
{
    QFETCH(QByteArray, value);
    QFETCH(int, shownList);
    QFETCH(ListParams, keptList);

    const QString instrument = QStringLiteral("Damaged");
    {
        QFile file(QSettings().fileName());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("[Damaged]\nProgrammer\\List%20Active%20Type=2\n"
                   "Programmer\\List%20Template%20Params=\""
                   + value + "\"\n");
    }
    {
        DialogProgrammer dialog(hostOption(instrument));
        QCOMPARE(shownType(dialog, "cbbListTempType"), shownList);
        QCOMPARE(shownType(dialog, "cbbDelayerTempType"), 0);
    }
    QCOMPARE(stored(instrument, keptList, delayerDefaults()),
             QStringLiteral("list as expected type %1, delayer as expected type 0").arg(shownList));
}

QTEST_MAIN(TestDialogSettings)
#include "tst_dialogsettings.moc"
