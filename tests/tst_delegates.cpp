// Tests of the cell editors, driven through real table views.
#include "comboboxdelegate.h"
#include "delayermodel.h"
#include "floatdelegate.h"
#include "helper.h"
#include "listdatamodel.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QTableView>
#include <QtTest>

using namespace tarn2::specific::orvo5000::programmer;

namespace {
// A view whose editor can be committed and closed the way the Enter key does it.
class TableView final : public QTableView
{
public:
    void commitAndClose(QWidget *editor)
    {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
};
} // namespace

class TestDelegates : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale::c());
        Option option;
        option.voltageDecimals = 2;
        option.currentDecimals = 3;
        option.timeDecimals = 1;
        option.timeMin = 0.1;
        option.timeMax = 1000.0;
        option.channels = {{QStringLiteral("CH1"), {{0.0, 30.0}, {0.0, 5.0}}},
                           {QStringLiteral("CH2"), {{-1.0, 60.0}, {0.01, 2.5}}}};
        Helper::getInstance().option = option;
    }

    void floatEditor_data()
    {
        QTest::addColumn<int>("channel");
        QTest::addColumn<int>("column");
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("stored");
        QTest::newRow("voltage of CH1") << 0 << 1 << 0.0 << 30.0 << 2 << "12.34" << 12.34;
        QTest::newRow("current of CH1") << 0 << 2 << 0.0 << 5.0 << 3 << "1.234" << 1.234;
        QTest::newRow("voltage of CH2") << 1 << 1 << -1.0 << 60.0 << 2 << "-0.5" << -0.5;
        QTest::newRow("current of CH2") << 1 << 2 << 0.01 << 2.5 << 3 << "2.5" << 2.5;
        QTest::newRow("time") << 0 << 3 << 0.1 << 1000.0 << 1 << "999.9" << 999.9;
        QTest::newRow("time without channel") << 7 << 3 << 0.1 << 1000.0 << 1 << "2.5" << 2.5;
    }
    void floatEditor()
    {
        QFETCH(int, channel);
        QFETCH(int, column);
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(int, decimals);
        QFETCH(QString, typed);
        QFETCH(double, stored);
        Helper::getInstance().currentChannel = channel;
        QList<ListData> steps{{1.5, 0.25, 3.0}};
        ListDataModel model(steps, nullptr);
        FloatDelegate delegate;
        TableView view;
        view.setModel(&model);
        view.setItemDelegate(&delegate);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));

        const QModelIndex index = model.index(0, column);
        view.edit(index);
        auto *editor = view.findChild<QDoubleSpinBox *>();
        QVERIFY(editor);
        QCOMPARE(editor->minimum(), minimum);
        QCOMPARE(editor->maximum(), maximum);
        QCOMPARE(editor->decimals(), decimals);
        QCOMPARE(editor->alignment(), Qt::AlignRight | Qt::AlignVCenter);
        QVERIFY(!editor->hasFrame());
        QCOMPARE(editor->value(), index.data(Qt::EditRole).toDouble());
        editor->selectAll();
        QTest::keyClicks(editor, typed);
        view.commitAndClose(editor);
        QCOMPARE(index.data(Qt::EditRole).toDouble(), stored);
    }

    void noValueEditorWithoutChannelRanges()
    {
        Helper::getInstance().currentChannel = 2;
        QList<ListData> steps{{1.5, 0.25, 3.0}};
        ListDataModel model(steps, nullptr);
        FloatDelegate delegate;
        QWidget parent;
        const QStyleOptionViewItem option;
        QVERIFY(!delegate.createEditor(&parent, option, model.index(0, 1)));
        QVERIFY(!delegate.createEditor(&parent, option, model.index(0, 2)));
        // The step number is no value of its own: it gets the base delegate's editor.
        QWidget *editor = delegate.createEditor(&parent, option, model.index(0, 0));
        QVERIFY(editor && !qobject_cast<QDoubleSpinBox *>(editor));
    }

    void stateEditorStoresTheChosenState()
    {
        QList<DelayerData> steps{{false, 1.0}};
        DelayerModel model(steps, nullptr);
        ComboBoxDelegate delegate;
        TableView view;
        view.setModel(&model);
        view.setItemDelegate(&delegate);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));

        view.edit(model.index(0, 1));
        auto *editor = view.findChild<QComboBox *>();
        QVERIFY(editor);
        QCOMPARE(editor->count(), 2);
        QCOMPARE(editor->itemText(0), QStringLiteral("OFF"));
        QCOMPARE(editor->itemText(1), QStringLiteral("ON"));
        QCOMPARE(editor->currentIndex(), 0);
        // The list of states opens as soon as editing starts.
        QTRY_VERIFY(editor->view()->isVisible());
        QTest::keyClick(editor->view(), Qt::Key_Down);
        QTest::keyClick(editor->view(), Qt::Key_Return);
        QTRY_VERIFY(!editor->view()->isVisible());
        QCOMPARE(editor->currentIndex(), 1);
        view.commitAndClose(editor);
        QCOMPARE(steps.at(0).state, true);
        QCOMPARE(model.index(0, 1).data().toString(), QStringLiteral("ON"));
    }

    void stateDelegateLeavesTheTimeToTheBaseEditor()
    {
        QList<DelayerData> steps{{false, 1.0}};
        DelayerModel model(steps, nullptr);
        ComboBoxDelegate delegate;
        TableView view;
        view.setModel(&model);
        view.setItemDelegate(&delegate);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));

        view.edit(model.index(0, 2));
        QVERIFY(!view.findChild<QComboBox *>());
        auto *editor = view.findChild<QDoubleSpinBox *>();
        QVERIFY(editor);
        QCOMPARE(editor->value(), 1.0);
        editor->setValue(2.5);
        view.commitAndClose(editor);
        QCOMPARE(steps.at(0).time, 2.5);
        QCOMPARE(steps.at(0).state, false);
    }
};

QTEST_MAIN(TestDelegates)
#include "tst_delegates.moc"
