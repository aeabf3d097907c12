// Tests of the sequence files: the lines written, the checks of loading, and applying a load.
#include "dialogprogrammer.h"

#include <character.h>

#include <QtTest>
#include <QtWidgets>

using namespace tarn2::specific::orvo5000::programmer;

#ifdef __SANITIZE_ADDRESS__
constexpr qint64 kBudgetMsec = 10000; // the sanitizers slow parsing down tenfold
#else
constexpr qint64 kBudgetMsec = 1000;
#endif

class TestDialogFiles : public QObject
{
    Q_OBJECT

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("sequence.csv"));
    UploadMode mode = UploadMode::List;
    QString answer; // left in param: "ignore" nothing, "" the tab as loaded, else "<cycles> <end>"
    std::unique_ptr<DialogProgrammer> dialog;

    bool save(const QList<ListData> &datas) { return dialog->listSaveData(path, datas); }
    bool save(const QList<DelayerData> &datas) { return dialog->delayerSaveData(path, datas); }
    void fill(QList<ListData> &datas) { datas = dialog->listLoadData(path); }
    void fill(QList<DelayerData> &datas) { datas = dialog->delayerLoadData(path); }
    template<typename T> T *child(const char *prefix, const char *suffix = "")
    {
        const QString tab = QLatin1String(mode ? "Delayer" : "List");
        return dialog->findChild<T *>(QLatin1String(prefix) + tab + QLatin1String(suffix));
    }

    // Writes the file, lines parted by '|', and loads it through the load action.
    void loadFile(const QByteArray &file)
    {
        QFile out(path);
        QVERIFY(out.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
                && out.write(QByteArray(file).replace('|', '\n')) == file.size());
        dialog->findChild<QAction *>(mode ? "actionLoadDelayer" : "actionloadList")->trigger();
    }

    // The tab: its cells but the step numbers, then cycles and end state.
    QString outcome()
    {
        const QAbstractItemModel *model = child<QTableView>("tv")->model();
        const UploadParam param = dialog->getUploadParamFromUI(mode);
        QString shown;
        for (int row = 0; row < model->rowCount(); ++row)
            for (int column = 1; column < model->columnCount(); ++column)
                shown += model->index(row, column).data(Qt::EditRole).toString() + ' ';
        return shown + QStringLiteral("/ %1 ").arg(param.cycles) + param.endState;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(dir.isValid() && qputenv("XDG_CONFIG_HOME", dir.path().toLocal8Bit()));
        QLocale::setDefault(QLocale::c());
    }

    void load_data()
    {
        QTest::addColumn<bool>("delayer");
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("reply"); // left in param: see `answer`
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("saved"); // then, and loaded back

        // Each refused file breaks or cuts one line of a file that loads; the tab keeps its values.
        const QByteArray list = "LIST,10|Cycles,5|End Status,Output Off|Groups,1|No.|0,1,1,1";
        const QString none;
        const auto refused = [&](const char *name, int line, const char *text) {
            QByteArrayList lines = list.split('|').mid(0, text ? 6 : line);
            if (text)
                lines[line] = text;
            QTest::newRow(name) << false << lines.join('|') << none << "/ 42 ON" << none;
        };
        refused("version 1.0", 0, "LIST,1.0");
        refused("lower-case tag", 0, "list,10");
        refused("cycles 100000", 1, "Cycles,100000");
        refused("cycles -1", 1, "Cycles,-1");
        refused("list ends on", 2, "End Status,Output On");
        refused("groups 0", 3, "Groups,0");
        refused("groups above maximum", 3, "Groups,4");
        refused("no groups line", 3, nullptr);
        QTest::newRow("host ignores") << false << list << "ignore"
                                      << "/ 42 ON" << none;
        QTest::newRow("cut at the maximum") << false << list + "|1,2,2,2|2,3,3,3|3,4,4,4" << none
                                            << "1 1 1 2 2 2 3 3 3 / 5 OFF" << none;
        // Param wins over the file; what is then saved, with the instrument's decimals, loads back.
        QTest::newRow("list round trip")
            << false << QByteArray("LIST,10|Cycles,1|End Status,Last|Groups,1|No.|0,5,1.5,0.25")
            << "0 OFF"
            << "5 1.5 0.25 / 0 OFF"
            << "LIST,10|Cycles,Infinite|End Status,Output Off|Groups,1|"
               "No.,Voltage(V),Current(A),Time(s)|0,5.0,1.5000,0.250";
        QTest::newRow("delayer round trip, states case-sensitive")
            << true
            << QByteArray("DELAYER,10|Cycles,1|End Status,Last|Groups,3|No.|0,On,1|1,ON,2|3,on,1.5")
            << "99999 ON"
            << "true 1 false 2 false 1.5 / 99999 ON"
            << "DELAYER,10|Cycles,99999|End Status,Output On|Groups,3|No.,State,Time(s)|"
               "0,On,1.000|1,Off,2.000|2,Off,1.500";
        QTest::newRow("delayer saved with end state Last")
            << true << QByteArray("DELAYER,10|Cycles,1|End Status,Output Off|Groups,1|No.|0,Off,2")
            << "3 LAST"
            << "false 2 / 3 LAST"
            << "DELAYER,10|Cycles,3|End Status,Last|Groups,1|No.,State,Time(s)|0,Off,2.000";
        // Line 5 is never examined: without its column titles the first step stands in for them.
        QTest::newRow("no column-title line")
            << false
            << QByteArray("LIST,10|Cycles,5|End Status,Output Off|Groups,2|0,1,1,1|1,2,2,2") << none
            << "2 2 2 / 5 OFF" << none;
        // Files no user should feed in load nothing or at most the maximum, and quickly.
        const QByteArray head = "LIST,10|Cycles,1|End Status,Output Off|Groups,3|No.|";
        QVector<quint32> noise(1 << 18);
        QRandomGenerator(20240229).fillRange(noise.data(), noise.size());
        const QByteArray wide = "0." + QByteArray(9998, '7');
        QTest::newRow("random bytes")
            << false << QByteArray(reinterpret_cast<const char *>(noise.constData()), 1 << 20)
            << none << "/ 42 ON" << none;
        QTest::newRow("a million steps")
            << false << head + QByteArray("0,1.000,0.500,0.010\n").repeated(1000000) << none
            << "1 0.5 0.01 1 0.5 0.01 1 0.5 0.01 / 1 OFF" << none;
        QTest::newRow("wide fields") << false << head + wide + ",1,2," + wide + "|1," + wide << none
                                     << "1 2 0.7777777777777778 / 1 OFF" << none;
        QTest::newRow("NUL bytes") << false << head + QByteArray("0,1\0,2,3|\0\0\0|1,\0,\0,\0", 20)
                                   << none << "0 2 3 0 0 0 / 1 OFF" << none;
    }

    // Loads the row's file into a tab holding a step, 42 cycles and end state "Output On".
    void load()
    {
        QFETCH(bool, delayer);
        QFETCH(QByteArray, file);
        QFETCH(QString, reply);
        QFETCH(QString, shown);
        QFETCH(QString, saved);

        // Room for 3 steps, with 1 voltage, 4 current and 3 time decimals.
        Option option{QStringLiteral("Files"), 3, 0.001, 99999, 1, 4, {}, 3, true, true, true};
        dialog.reset(new DialogProgrammer(option));
        mode = UploadMode(delayer);
        answer = QStringLiteral("42 ON");
        // A host that answers within the emission, as the dialog expects.
        const auto saving = [&](const auto &datas) {
            QVERIFY(save(datas));
        };
        const auto loading = [&](auto &datas, UploadParam &p) {
            if (answer == QLatin1String("ignore"))
                return;
            fill(datas);
            p = dialog->getUploadParamFromUI(mode);
            if (!answer.isEmpty()) {
                p.cycles = answer.section(' ', 0, 0).toInt();
                p.endState = answer.section(' ', 1);
            }
        };
        connect(dialog.get(), &DialogProgrammer::listSaveToCSV, saving);
        connect(dialog.get(), &DialogProgrammer::delayerSaveToCSV, saving);
        connect(dialog.get(), &DialogProgrammer::listLoadFromCSV, loading);
        connect(dialog.get(), &DialogProgrammer::delayerLoadFromCSV, loading);
        loadFile(delayer ? "DELAYER,10|Cycles,1|End Status,Last|Groups,1|No.|0,On,9"
                         : "LIST,10|Cycles,1|End Status,Last|Groups,1|No.|0,9,9,9");
        QCOMPARE(child<QTableView>("tv")->model()->rowCount(), 1);
        answer = reply;
        const QDeadlineTimer budget(kBudgetMsec);
        loadFile(file);
        QVERIFY2(!budget.hasExpired(), qPrintable(QString::number(budget.remainingTime())));
        QCOMPARE(outcome(), shown);
        const QAbstractItemModel *model = child<QTableView>("tv")->model();
        QCOMPARE(child<QSpinBox>("sb", "Groups")->value(), model->rowCount());
        QCOMPARE(child<QTableView>("tv")->selectionModel()->selectedIndexes().size(),
                 model->rowCount() * model->columnCount());
        if (saved.isEmpty())
            return;
        if (delayer) // the button of each tab does what its action does
            child<QPushButton>("btn", "Save")->click();
        else
            dialog->findChild<QAction *>(QStringLiteral("actionSaveList"))->trigger();
        QCOMPARE(tarn2::util::character::Character::csvLoad(path), saved.split('|'));
        child<QSpinBox>("sb", "Cycles")->setValue(7);
        child<QComboBox>("cbb", "EndState")->setCurrentIndex(-1);
        answer.clear();
        loadFile(saved.toUtf8());
        QCOMPARE(outcome(), shown);
    }
};

QTEST_MAIN(TestDialogFiles)
#include "tst_dialogfiles.moc"
