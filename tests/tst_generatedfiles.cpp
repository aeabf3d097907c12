// The command-line tool's generated files against the dialog's own: the same template with the
// same parameters must give the same file, byte for byte.
#include <dialogprogrammer.h>
#include <instrumentdescription.h>
#include <instrumentoption.h>

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace tarn2::specific::orvo5000::programmer;

using Settings = QList<QPair<QString, double>>;

class TestGeneratedFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QVERIFY(qputenv("XDG_CONFIG_HOME", m_dir.path().toLocal8Bit()));
        QLocale::setDefault(QLocale::c());
    }

    void generatedFileIsTheDialogs_data();
    void generatedFileIsTheDialogs();

private:
    QTemporaryDir m_dir;
};

void TestGeneratedFiles::generatedFileIsTheDialogs_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("mode");
    // The dialog's editors by name, in the order a user sets them: a combo box takes the index,
    // a check box is clicked, a spin box takes the value.
    QTest::addColumn<Settings>("settings");

    QTest::newRow("sine, defaults") << QStringList{"sine"} << int(List) << Settings{};
    QTest::newRow("stair up, steps and period")
        << QStringList{"stair-up", "--steps", "4", "--period", "8", "--maximum", "12"} << int(List)
        << Settings{{"cbbListTempType", 3},
                    {"sbListTempSteps3", 4},
                    {"sbListTempPeriod3", 8},
                    {"sbListTempMax", 12}};
    QTest::newRow("inverted pulse driving the current") << QStringList{"pulse",
                                                                       "--object",
                                                                       "current",
                                                                       "--maximum",
                                                                       "2",
                                                                       "--inverted",
                                                                       "--width",
                                                                       "5",
                                                                       "--voltage",
                                                                       "7.5"}
                                                        << int(List)
                                                        << Settings{{"cbbListTempType", 1},
                                                                    {"cbbListTempObject", 1},
                                                                    {"sbListTempMax", 2},
                                                                    {"cbListTempInverted1", 1},
                                                                    {"sbListTempWidth1", 5},
                                                                    {"sbListTempOtherValue", 7.5}};
    QTest::newRow("decline") << QStringList{"decline",
                                            "--base",
                                            "6",
                                            "--step",
                                            "0.5",
                                            "--groups",
                                            "8",
                                            "--end-state",
                                            "last"}
                             << int(Delayer)
                             << Settings{{"cbbDelayerTempType", 2},
                                         {"sbDelayerTempDecBaseValue", 6},
                                         {"sbDelayerTempDecStep", 0.5},
                                         {"sbDelayerTemplageGroups", 8},
                                         {"cbbDelayerEndState", 2}};
}

void TestGeneratedFiles::generatedFileIsTheDialogs()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, mode);
    QFETCH(Settings, settings);

    const QString generated = m_dir.filePath(QStringLiteral("generated.csv"));
    QProcess tool;
    tool.start(QStringLiteral(TARN_BENCH_CLI),
               QStringList{"generate", "-q", "--repeat", "0", "-o", generated} + arguments);
    QVERIFY(tool.waitForFinished(30000));
    QCOMPARE(tool.exitCode(), 0);

    DialogProgrammer dialog(tarn::host::optionFor(tarn::sim::InstrumentDescription::builtIn()));
    for (const auto &[name, value] : settings) {
        QWidget *editor = dialog.findChild<QWidget *>(name);
        QVERIFY2(editor, qPrintable(name));
        if (auto *combo = qobject_cast<QComboBox *>(editor)) {
            combo->setCurrentIndex(static_cast<int>(value));
        } else if (auto *box = qobject_cast<QCheckBox *>(editor)) {
            box->click();
        } else if (auto *number = qobject_cast<QDoubleSpinBox *>(editor)) {
            number->setValue(value);
            emit number->editingFinished();
        } else if (auto *whole = qobject_cast<QSpinBox *>(editor)) {
            whole->setValue(static_cast<int>(value));
            emit whole->editingFinished();
        }
    }
    dialog.appendTemplate(static_cast<UploadMode>(mode));
    const QString saved = m_dir.filePath(QStringLiteral("saved.csv"));
    QVERIFY(mode == List ? dialog.listSaveData(saved, dialog.listSequence())
                         : dialog.delayerSaveData(saved, dialog.delayerSequence()));

    QFile a(generated);
    QFile b(saved);
    QVERIFY(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
    QCOMPARE(a.readAll(), b.readAll());
}

QTEST_MAIN(TestGeneratedFiles)
#include "tst_generatedfiles.moc"
