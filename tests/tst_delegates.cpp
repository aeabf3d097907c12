// Tests of the cell editors, driven through a real table view.
#include "comboboxdelegate.h"
#include "delayermodel.h"
#include "floatdelegate.h"
#include "helper.h"
#include "listdatamodel.h"
#include "modeltester.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QTableView>

using namespace tarn2::specific::orvo5000::programmer;

class TestDelegates : public QObject
{
    Q_OBJECT

    QTableView view;

private slots:
    void initTestCase()
    {
        modeltester::start();
        // Seconds with 1 decimal from 0.1 to 1000, volts with 2 decimals, amperes with 3.
        Helper::getInstance().option = {{}, 1, 0.1, 1000, 2, 3, {{"CH1", {{-1, 30}, {0.01, 5}}}}};
        view.show();
    }

    void floatEditor_data()
    {
        QTest::addColumn<int>("channel"); // the option has only channel 0
        QTest::addColumn<int>("column");
        QTest::addColumn<double>("typed");
        QTest::addColumn<QString>("range"); // as the editor shows its bounds; none: no editor
        QTest::newRow("voltage") << 0 << 1 << 12.34 << "-1.00..30.00";
        QTest::newRow("current") << 0 << 2 << 1.234 << "0.010..5.000";
        QTest::newRow("time") << 0 << 3 << 999.9 << "0.1..1000.0";
        QTest::newRow("time without channel") << 1 << 3 << 2.5 << "0.1..1000.0";
        QTest::newRow("no voltage without channel") << 1 << 1 << 0.0 << "";
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
        const QModelIndex index = f.model.index(0, column);
        view.edit(index);
        auto *editor = view.findChild<QDoubleSpinBox *>();
        QVERIFY(editor || range.isEmpty());
        if (!editor)
            return;
        QCOMPARE(editor->textFromValue(editor->minimum()) + ".."
                     + editor->textFromValue(editor->maximum()),
                 range);
        QCOMPARE(editor->value(), index.data(Qt::EditRole).toDouble());
        editor->clear();
        QTest::keyClicks(editor, QString::number(typed));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(index.data(Qt::EditRole).toDouble(), typed);
    }

    void stateEditorStoresOnAsTrue()
    {
        modeltester::Watched<DelayerModel, DelayerData> f{{{false, 1.0}}};
        ComboBoxDelegate delegate;
        view.setModel(&f.model);
        view.setItemDelegate(&delegate);
        view.edit(f.model.index(0, 1));
        auto *editor = view.findChild<QComboBox *>();
        QVERIFY(editor && editor->count() == 2 && editor->currentIndex() == 0);
        QTRY_VERIFY(editor->view()->isVisible()); // the choice is offered at once
        editor->setCurrentIndex(editor->findText(QStringLiteral("ON")));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_VERIFY(f.steps.at(0).state);
    }
};

QTEST_MAIN(TestDelegates)
#include "tst_delegates.moc"
