// Tests of the cell editors, driven through a real table view.
#include "benchoption.h"
#include "comboboxdelegate.h"
#include "delayermodel.h"
#include "floatdelegate.h"
#include "helper.h"
#include "listdatamodel.h"
#include "modeltester.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QScopeGuard>
#include <QTableView>

using namespace tarn2::specific::orvo5000::programmer;
using Range = QPair<double, double>;

class TestDelegates : public QObject
{
    Q_OBJECT

    QTableView view;

private slots:
    void initTestCase()
    {
        modeltester::start();
        // Seconds with 1 decimal from 0.1 to 1000, volts with 2 decimals, amperes with 3; CH1
        // regulates -1..30 V and 0.01..5 A, CH2 is described by its voltage range only.
        Option option = test::benchOption();
        option.name.clear();
        option.timeDecimals = 1;
        option.timeMin = 0.1;
        option.timeMax = 1000;
        option.voltageDecimals = 2;
        option.currentDecimals = 3;
        option.channels = {test::channel(QStringLiteral("CH1"), 30, 5),
                           test::channel(QStringLiteral("CH2"), 20, 2)};
        option.channels[0].ranges[0].first = -1;
        option.channels[0].ranges[1].first = 0.01;
        // The dropped 0..2 A stays in memory behind the end, where a look-up reading past the
        // end would find it.
        option.channels[1].ranges.removeLast();
        Helper::getInstance().option = option;
        view.show();
    }

    void floatEditor_data()
    {
        QTest::addColumn<int>("channel");
        QTest::addColumn<int>("column");
        QTest::addColumn<double>("typed");
        QTest::addColumn<QString>("range"); // as the editor shows its bounds; none: no editor
        QTest::newRow("voltage") << 0 << 1 << 12.34 << "-1.00..30.00";
        QTest::newRow("current") << 0 << 2 << 1.234 << "0.010..5.000";
        QTest::newRow("time") << 0 << 3 << 999.9 << "0.1..1000.0";
        // A value whose range the option does not describe is not edited at all.
        QTest::newRow("voltage of a voltage-only channel") << 1 << 1 << 12.5 << "0.00..20.00";
        QTest::newRow("no current of a voltage-only channel") << 1 << 2 << 0.0 << "";
        QTest::newRow("no voltage without channel") << 2 << 1 << 0.0 << "";
        QTest::newRow("time without channel") << 2 << 3 << 2.5 << "0.1..1000.0";
    }
    void floatEditor()
    {
        QFETCH(int, channel);
        QFETCH(int, column);
        QFETCH(double, typed);
        QFETCH(QString, range);
        Helper::getInstance().currentChannel = channel;
        modeltester::Watched<ListDataModel, ListData> f{{{1.5, 0.25, 3.0}}};
        FloatDelegate delegate;
        view.setModel(&f.model);
        view.setItemDelegate(&delegate);
        // An editor left open by a failed check must not outlive its model and delegate.
        const auto closeEditors = qScopeGuard([this] { view.setModel(nullptr); });
        const QModelIndex index = f.model.index(0, column);
        view.edit(index);
        auto *editor = view.findChild<QDoubleSpinBox *>();
        if (range.isEmpty()) {
            QVERIFY(!editor);
            return;
        }
        QVERIFY(editor);
        QCOMPARE(editor->textFromValue(editor->minimum()) + ".."
                     + editor->textFromValue(editor->maximum()),
                 range);
        QCOMPARE(editor->value(), index.data(Qt::EditRole).toDouble());
        editor->clear();
        QTest::keyClicks(editor, QString::number(typed));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_VERIFY(!view.findChild<QDoubleSpinBox *>());
        QCOMPARE(index.data(Qt::EditRole).toDouble(), typed);
    }

    void rangeLookUps_data()
    {
        QTest::addColumn<int>("channel");
        QTest::addColumn<Range>("voltage");
        QTest::addColumn<Range>("current");
        QTest::newRow("CH1") << 0 << Range(-1, 30) << Range(0.01, 5);
        // Where the option has no range the look-ups give (0, 0) instead of reading past it.
        QTest::newRow("voltage-only CH2") << 1 << Range(0, 20) << Range(0, 0);
        QTest::newRow("past the last channel") << 2 << Range(0, 0) << Range(0, 0);
        QTest::newRow("before the first channel") << -1 << Range(0, 0) << Range(0, 0);
    }
    void rangeLookUps()
    {
        QFETCH(int, channel);
        QFETCH(Range, voltage);
        QFETCH(Range, current);
        QCOMPARE(getVRangeOfChannel(channel), voltage);
        QCOMPARE(getCRangeOfChannel(channel), current);
    }

    void stateEditor_data()
    {
        QTest::addColumn<bool>("stored");
        QTest::addColumn<QString>("opensOn");
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<bool>("committed");
        QTest::addColumn<QString>("shown");
        QTest::newRow("off cell, ON chosen") << false << "OFF"
                                             << "ON" << true << "ON";
        QTest::newRow("on cell, OFF chosen") << true << "ON"
                                             << "OFF" << false << "OFF";
    }

    // The editor opens on the cell's state with the choice already offered, and stores the one
    // chosen.
    void stateEditor()
    {
        QFETCH(bool, stored);
        QFETCH(QString, opensOn);
        QFETCH(QString, chosen);
        QFETCH(bool, committed);
        QFETCH(QString, shown);
        modeltester::Watched<DelayerModel, DelayerData> f{{{stored, 1.0}}};
        ComboBoxDelegate delegate;
        view.setModel(&f.model);
        view.setItemDelegate(&delegate);
        // An editor left open by a failed check must not outlive its model and delegate.
        const auto closeEditors = qScopeGuard([this] { view.setModel(nullptr); });
        const QModelIndex index = f.model.index(0, 1);
        view.edit(index);
        auto *editor = view.findChild<QComboBox *>();
        QVERIFY(editor);
        QCOMPARE(editor->count(), 2);
        QCOMPARE(editor->itemText(0), QStringLiteral("OFF"));
        QCOMPARE(editor->itemText(1), QStringLiteral("ON"));
        QCOMPARE(editor->currentText(), opensOn);
        QTRY_VERIFY(editor->view()->isVisible());
        editor->setCurrentIndex(editor->findText(chosen));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_VERIFY(!view.findChild<QComboBox *>());
        QCOMPARE(f.steps.at(0).state, committed);
        QCOMPARE(index.data(Qt::DisplayRole).toString(), shown);
    }
};

QTEST_MAIN(TestDelegates)
#include "tst_delegates.moc"
