// Tests of the upload flow: what a host receives, in which order, and what the dialog shows.
#include "dialogprogrammer.h"

#include <QtTest>
#include <QtWidgets>

using namespace tarn2::specific::orvo5000::programmer;

class TestDialogUpload : public QObject
{
    Q_OBJECT

    QTemporaryDir configDir;

private slots:
    void initTestCase()
    {
        QVERIFY(configDir.isValid() && qputenv("XDG_CONFIG_HOME", configDir.path().toLocal8Bit()));
        QLocale::setDefault(QLocale::c());
    }

    void run_data()
    {
        QTest::addColumn<int>("maxCount");
        QTest::addColumn<bool>("delayer");
        QTest::addColumn<int>("steps");
        QTest::addColumn<QString>("expected"); // what the host saw, events parted by '|'

        // Each tab is set to channel index 2, 7 cycles and end-state index 1 (list) or 2 (delayer).
        const QString list
            = "started 0 ch 3 max 3 cycles 7 ON, locked 0 of 3|"
              "next 0: 1.5 V 0.25 A 0.5 s, rows 0, locked 1 of 3|"
              "next 1: 32 V 3.2 A 99999 s, rows 1, locked 2 of 3|"
              "next 2: 0 V 0 A 0.001 s, rows 2, locked 3 of 3|finished, locked 3 of 3|";
        QTest::newRow("list") << 2048 << false << 3 << list + "stoped, free";
        QTest::newRow("delayer of 3, instrument holds 2")
            << 2 << true << 3
            << "started 1 ch 3 max 2 cycles 7 LAST, locked 0 of 2|"
               "next 0: On 0.5 s, rows 0, locked 1 of 2|next 1: Off 1.25 s, rows 1, locked 2 of 2|"
               "finished, locked 2 of 2|stoped, free";
        QTest::newRow("host ignores finished")
            << 2048 << false << 3
            << list + "error The upload timed out, locked 3 of 3|stoped, free";
        // The uploader never runs with nothing to send; stopping still ends the run and unlocks.
        QTest::newRow("instrument holds none")
            << 0 << false << 2 << "started 0 ch 3 max 0 cycles 7 ON, locked 0 of 0|stoped, free";
        QTest::newRow("empty list")
            << 2048 << false << 0 << "The list data is empty, color:#ff0000";
        QTest::newRow("empty delayer")
            << 2048 << true << 0 << "The delayer data is empty, color:#ff0000";
    }

    void run()
    {
        QFETCH(int, maxCount);
        QFETCH(bool, delayer);
        QFETCH(int, steps);
        QFETCH(QString, expected);

        // The other tab's sequence is never empty, so that a mix-up of the two shows.
        QList<ListData> list{{1.5, 0.25, 0.5}, {32, 3.2, 99999}, {0, 0, 0.001}, {}, {}};
        QList<DelayerData> delays{{true, 0.5}, {false, 1.25}, {true, 99999}};
        list = list.mid(0, delayer ? 2 : steps);
        delays = delays.mid(0, delayer ? steps : 2);
        QStringList log;
        Option option{QStringLiteral("U"), 3, 0.001, 99999, 3, 3, {}, maxCount, true, true, true};
        option.channels.fill({QStringLiteral("CH"), {{0, 32}, {0, 3.2}}}, 4);
        DialogProgrammer dialog(option);
        const QString tab = QLatin1String(delayer ? "Delayer" : "List");
        const auto *bar = dialog.findChild<QProgressBar *>();
        const auto *view = dialog.findChild<QTableView *>("tv" + tab);
        // A host on all nine signals: it loads the sequences, logs the rest and the dialog state.
        const auto record = [&](const QString &event) {
            QString shown = event + QLatin1String(dialog.isEnabled() ? ", free" : ", locked");
            if (bar->isVisibleTo(&dialog))
                shown += QString::asprintf(" %d of %d", bar->value(), bar->maximum());
            log << shown;
        };
        using D = DialogProgrammer;
        connect(&dialog, &D::listLoadFromCSV, [&](QList<ListData> &datas) { datas = list; });
        connect(&dialog, &D::delayerLoadFromCSV, [&](QList<DelayerData> &d) { d = delays; });
        connect(&dialog, &D::listSaveToCSV, [&] { record(QStringLiteral("list save")); });
        connect(&dialog, &D::delayerSaveToCSV, [&] { record(QStringLiteral("delayer save")); });
        connect(&dialog, &D::uploaderStarted, [&](const UploadParam &p) {
            auto head = QString::asprintf("started %d ch %d max %d", p.mode, p.channel, p.maxCount);
            record(head + QStringLiteral(" cycles %1 ").arg(p.cycles) + p.endState);
        });
        connect(&dialog, &D::uploaderNextData, [&](int i, const ProgrammerData &data) {
            const auto *s = dynamic_cast<const ListData *>(&data);
            const auto *d = dynamic_cast<const DelayerData *>(&data);
            QString rows;
            for (const QModelIndex &index : view->selectionModel()->selectedRows())
                rows += QString::number(index.row());
            record(QString::asprintf("next %d: ", i)
                   + (s ? QString::asprintf("%g V %g A %g s", s->voltage, s->current, s->time)
                        : QString::asprintf("%s %g s", d->state ? "On" : "Off", d->time))
                   + ", rows " + rows);
        });
        connect(&dialog, &D::uploaderFinished, [&] { record(QStringLiteral("finished")); });
        connect(&dialog, &D::uploaderError, [&](const QString &e) { record("error " + e); });
        connect(&dialog, &D::uploaderStoped, [&] { record(QStringLiteral("stoped")); });

        dialog.findChild<QAction *>(QStringLiteral("actionloadList"))->trigger();
        dialog.findChild<QAction *>(QStringLiteral("actionLoadDelayer"))->trigger();
        dialog.findChild<QComboBox *>("cbb" + tab + "CH")->setCurrentIndex(2);
        dialog.findChild<QSpinBox *>("sb" + tab + "Cycles")->setValue(7);
        dialog.findChild<QComboBox *>("cbb" + tab + "EndState")->setCurrentIndex(delayer ? 2 : 1);
        const auto *status = dialog.findChild<QStatusBar *>();
        // Calls outside a run reach nothing; the list goes by action, the delayer by button.
        dialog.uploaderNext();
        dialog.uploaderStop();
        if (delayer)
            dialog.findChild<QPushButton *>(QStringLiteral("btnDelayerUpload"))->click();
        else
            dialog.findChild<QAction *>(QStringLiteral("actionListUpload"))->trigger();
        for (int i = 0; i <= qMin(steps, maxCount); ++i) // and one asking past the last step
            dialog.uploaderNext();
        if (expected.contains(QLatin1String("error"))) // a host that does not stop in time
            QTRY_VERIFY_WITH_TIMEOUT(log.last().startsWith(QLatin1String("error")), 1500);
        dialog.uploaderStop();
        dialog.uploaderNext();
        dialog.uploaderStop();
        QTest::qWait(700); // a run that is over reports nothing later
        if (!status->currentMessage().isEmpty())
            log << status->currentMessage() + ", " + status->styleSheet();
        QCOMPARE(log.join('|'), expected);
    }

    // A second request while a run is out is turned away: the run keeps its uploader and its
    // place, and the host hears of one start only.
    void uploadAgainDuringARunIsIgnored()
    {
        Option option{QStringLiteral("U"), 3, 0.001, 99999, 3, 3, {}, 2048, true, true, true};
        option.channels.fill({QStringLiteral("CH"), {{0, 32}, {0, 3.2}}}, 4);
        DialogProgrammer dialog(option);
        const QList<ListData> steps{{1, 1, 1}, {2, 1, 1}, {3, 1, 1}};
        connect(&dialog, &DialogProgrammer::listLoadFromCSV, [&](QList<ListData> &datas) {
            datas = steps;
        });
        dialog.findChild<QAction *>(QStringLiteral("actionloadList"))->trigger();
        QSignalSpy started(&dialog, &DialogProgrammer::uploaderStarted);
        QSignalSpy next(&dialog, &DialogProgrammer::uploaderNextData);
        auto *upload = dialog.findChild<QAction *>(QStringLiteral("actionListUpload"));

        upload->trigger();
        dialog.uploaderNext();
        upload->trigger();
        dialog.uploaderStart(UploadMode::Delayer);
        dialog.uploaderNext();
        QCOMPARE(started.size(), 1);
        QCOMPARE(next.size(), 2);
        QCOMPARE(next.at(1).at(0).toInt(), 1);
        dialog.uploaderStop();
        QVERIFY(dialog.isEnabled());
    }
};

QTEST_MAIN(TestDialogUpload)
#include "tst_dialogupload.moc"
