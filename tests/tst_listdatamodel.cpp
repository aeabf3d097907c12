// Tests of the editable List step table: texts, edits, row operations and their signals.
#include "helper.h"
#include "listdatamodel.h"
#include "modeltester.h"

#include <QSignalSpy>

using namespace tarn2::specific::orvo5000::programmer;
using modeltester::cells;
using Fixture = modeltester::Watched<ListDataModel, ListData>;

// Step n holds n V, 10n A and 100n s, so step 0 is a new, empty one.
static QList<ListData> steps(const QList<int> &ns)
{
    QList<ListData> result;
    for (int n : ns)
        result << ListData(n, 10 * n, 100 * n);
    return result;
}

class TestListDataModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modeltester::start(); }

    void textsAndEdits()
    {
        Fixture f{{{1.5, 0.5, 2.6}, {-1.26, 3, 4}}};
        QStringList headers;
        for (int section = -1; section <= 4; ++section)
            headers << f.model.headerData(section, Qt::Horizontal).toString();
        QCOMPARE(headers, QStringList({"", "No.", "Voltage(V)", "Current(A)", "Time(s)", ""}));
        Helper::getInstance().option
            = {{}, 0, 0, 0, 3, 4, {}}; // copied in later: V 3, A 4 decimals
        QCOMPARE(cells(f.model, Qt::DisplayRole),
                 QVariantList({0, "1.500", "0.5000", "3", 1, "-1.260", "3.0000", "4"}));

        // No. takes an edit without storing it: it is edited last, so that a store would show.
        QSignalSpy changed(&f.model, &QAbstractItemModel::dataChanged);
        QVERIFY(changed.isValid() && !f.model.setData(f.model.index(1, 1), 9, Qt::DisplayRole));
        const auto cell = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
        for (int column : {1, 2, 3, 0}) {
            const QModelIndex index = f.model.index(1, column);
            QVERIFY(f.model.setData(index, column + 0.25));
            QCOMPARE(changed.last(),
                     QVariantList({index, index, QVariant::fromValue(QVector<int>())}));
            QCOMPARE(f.model.flags(index), column == 0 ? cell : cell | Qt::ItemIsEditable);
        }
        const QModelIndex gone = f.model.index(1, 1);
        QVERIFY(f.model.removeRows(0, 1));
        QVERIFY(!f.model.setData(gone, 9) && !f.model.data(gone).isValid() && !f.model.flags(gone));
        QCOMPARE(changed.count(), 4);
        QCOMPARE(cells(f.model, Qt::EditRole), QVariantList({0, 1.25, 2.25, 3.25}));
    }

    // The first word of a row name is the operation; "steps" inserts steps -1 and -2.
    void rowOperations_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("count");
        QTest::addColumn<QList<int>>("expected");
        QTest::addColumn<QList<QVariantList>>("signalled");
        using L = QList<int>;
        using S = QList<QVariantList>;
        const QVariant root = QVariant::fromValue(QModelIndex());
        const L five{1, 2, 3, 4, 5};
        QTest::newRow("insert 3 at 2") << 2 << 3 << L{1, 2, 0, 0, 0, 3, 4, 5} << S{{root, 2, 4}};
        QTest::newRow("insert at the end") << 5 << 1 << L{1, 2, 3, 4, 5, 0} << S{{root, 5, 5}};
        QTest::newRow("insert refused past the end") << 6 << 1 << five << S();
        QTest::newRow("remove 3..12") << 3 << 10 << L{1, 2, 3} << S{{root, 3, 4}};
        QTest::newRow("remove -2..1") << -2 << 4 << L{3, 4, 5} << S{{root, 0, 1}};
        QTest::newRow("remove no rows") << 2 << 0 << five << S();
        QTest::newRow("steps before 1") << 1 << 2 << L{1, -1, -2, 2, 3, 4, 5} << S{{root, 1, 2}};
        QTest::newRow("steps at -1") << -1 << 2 << L{1, 2, 3, 4, 5, -1, -2} << S{{root, 5, 6}};
        QTest::newRow("steps at 5") << 5 << 2 << L{1, 2, 3, 4, 5, -1, -2} << S{{root, 5, 6}};
    }
    void rowOperations()
    {
        QFETCH(int, row);
        QFETCH(int, count);
        QFETCH(QList<int>, expected);
        QFETCH(QList<QVariantList>, signalled);
        const QByteArray operation = QByteArray(QTest::currentDataTag()).split(' ').value(0);
        Fixture f{steps({1, 2, 3, 4, 5})};
        QSignalSpy spy(&f.model,
                       operation == "remove" ? &QAbstractItemModel::rowsRemoved
                                             : &QAbstractItemModel::rowsInserted);
        QVERIFY(spy.isValid());
        if (operation == "insert")
            QCOMPARE(f.model.insertRows(row, count), !signalled.isEmpty());
        else if (operation == "remove")
            QVERIFY(f.model.removeRows(row, count));
        else
            f.model.insertRows(row, steps({-1, -2}).mid(0, count));
        QCOMPARE(cells(f.model, Qt::EditRole), cells(Fixture{steps(expected)}.model, Qt::EditRole));
        QCOMPARE(QList<QVariantList>(spy), signalled);
    }
};

QTEST_APPLESS_MAIN(TestListDataModel)
#include "tst_listdatamodel.moc"
