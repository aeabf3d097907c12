// Tests of the template settings: what survives a dialog, per instrument, and what damage gives.
#include "benchoption.h"
#include "dialogprogrammer.h"
#include "templatestream.h"

#include <QtTest>
#include <QtWidgets>

using namespace tarn2::specific::orvo5000::programmer;

class TestDialogSettings : public QObject
{
    Q_OBJECT

    QTemporaryDir configDir;

    // A template vector as settings store it: a variant of user type 127 and name, bytes escaped.
    static QByteArray variant(const QByteArray &payload, const QByteArray &family = "List")
    {
        const QByteArray name = "QVector<programmer::" + family + "TemplateParam>";
        QByteArray text = "\"@Variant(";
        for (const char c :
             QByteArray::fromHex("0000007f000000") + char(name.size()) + name + payload)
            text += "\\x" + QByteArray::number(uchar(c), 16);
        return text + ")\"";
    }

    // The period editor of the List type the dialog shows.
    static double shownPeriod(const DialogProgrammer &dialog)
    {
        const auto *type = dialog.findChild<QComboBox *>(QStringLiteral("cbbListTempType"));
        return dialog
            .findChild<QDoubleSpinBox *>(
                QStringLiteral("sbListTempPeriod%1").arg(type->currentIndex()))
            ->value();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(configDir.isValid());
        QVERIFY(qputenv("XDG_CONFIG_HOME", configDir.path().toLocal8Bit()));
        QLocale::setDefault(QLocale::c());
        QVERIFY(QDir().mkpath(QFileInfo(QSettings().fileName()).path()));
    }

    void templates_data()
    {
        QTest::addColumn<QByteArray>("ini"); // the store before the dialog for "Bench" opens
        QTest::addColumn<QString>("listType");
        QTest::addColumn<double>("period"); // of the List type shown
        QTest::addColumn<QString>("delayerType");

        // Ramp with a period of 12.5 s active on the List tab, Increase on the Delayer tab.
        QVector<ListTemplateParam> list;
        QVector<DelayerTemplateParam> delayer;
        resetListTemplateParams(list);
        resetDelayerTemplateParams(delayer);
        list[2].period = 12.5;
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << list << delayer;
        const QByteArray listBytes = bytes.left(4 + 8 * 105);
        const auto ini = [&](const QByteArray &value, int type = 2, const char *group = "Bench") {
            return '[' + QByteArray(group) + "]\nProgrammer\\List%20Active%20Type="
                   + QByteArray::number(type) + "\nProgrammer\\List%20Template%20Params=" + value
                   + "\nProgrammer\\Delayer%20Active%20Type=1"
                   + "\nProgrammer\\Delayer%20Template%20Params="
                   + variant(bytes.mid(4 + 8 * 105), "Delayer");
        };
        QTest::newRow("as saved") << ini(variant(listBytes)) << "Ramp" << 12.5 << "Increase";
        QTest::newRow("another instrument's")
            << ini(variant(listBytes), 2, "Other") << "Sine" << 30.0 << "Fix Time";
        // Damage loses the List templates only.
        QTest::newRow("7 list templates")
            << ini(variant(QByteArray::fromHex("00000007") + listBytes.mid(4, 7 * 105))) << "Sine"
            << 30.0 << "Increase";
        QTest::newRow("list type 9") << ini(variant(listBytes), 9) << "Sine" << 30.0 << "Increase";
        QTest::newRow("garbage") << ini("\\0\\xff@@Variant(\\x1\\x2") << "Sine" << 30.0
                                 << "Increase";
    }

    // A user then picks Ramp and Increase and retunes Ramp; the next dialog opens on those.
    void templates()
    {
        QFETCH(QByteArray, ini);
        QFETCH(QString, listType);
        QFETCH(double, period);
        QFETCH(QString, delayerType);

        QFile file(QSettings().fileName());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        QCOMPARE(file.write(ini), ini.size());
        file.close();
        Option option = test::benchOption();
        option.name = QStringLiteral("Bench");
        option.channels.clear(); // no ranges: only template types and periods are looked at
        {
            DialogProgrammer dialog(option);
            auto *list = dialog.findChild<QComboBox *>(QStringLiteral("cbbListTempType"));
            auto *delayer = dialog.findChild<QComboBox *>(QStringLiteral("cbbDelayerTempType"));
            QCOMPARE(list->currentText(), listType);
            QCOMPARE(shownPeriod(dialog), period);
            QCOMPARE(delayer->currentText(), delayerType);
            list->setCurrentIndex(2);
            delayer->setCurrentIndex(1);
            auto *ramp = dialog.findChild<QDoubleSpinBox *>(QStringLiteral("sbListTempPeriod2"));
            ramp->setValue(12.5);
            emit ramp->editingFinished(); // typed in and left, as a user does
        }
        DialogProgrammer next(option);
        QCOMPARE(next.findChild<QComboBox *>(QStringLiteral("cbbListTempType"))->currentText(),
                 QStringLiteral("Ramp"));
        QCOMPARE(shownPeriod(next), 12.5);
        QCOMPARE(next.findChild<QComboBox *>(QStringLiteral("cbbDelayerTempType"))->currentText(),
                 QStringLiteral("Increase"));
    }
};

QTEST_MAIN(TestDialogSettings)
#include "tst_dialogsettings.moc"
