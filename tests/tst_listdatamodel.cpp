// Tests of the editable List step table: texts, edits, row operations and their signals.
#include "helper.h"
#include "listdatamodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

#include <algorithm>
#include <limits>

using namespace tarn2::specific::orvo5000::programmer;

namespace {
// rowCount() answers for any parent and column 0 numbers the rows, both by design. The tester's
// findings that follow from exactly that are set aside; any other finding fails the test.
QStringList unexpectedFindings;
QtMessageHandler passOn = nullptr;
void screenFindings(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    static const QStringList byDesign{"model->hasChildren(topIndex)",
                                      "Actual (model->parent(childIndex))",
                                      "Actual (model->data(model->index(end + 1, 0, c.parent)))",
                                      "Actual (model->data(model->index(start, 0, c.parent)))"};
    const auto known = [&](const QString &statement) {
        return text.contains(statement);
    };
    if (qstrcmp(context.category, "qt.modeltest") != 0) {
        if (type != QtDebugMsg) // the tester's dumps of the rows it compared
            passOn(type, context, text);
    } else if (std::none_of(byDesign.cbegin(), byDesign.cend(), known)) {
        unexpectedFindings << text;
    }
}

// Step n > 0 holds n V, 10n A and 100n s; step 0 is a new, empty one; step -n holds -n throughout.
QList<ListData> steps(const QList<int> &ns)
{
    QList<ListData> result;
    for (int n : ns)
        result << (n > 0 ? ListData(n, 10 * n, 100 * n) : ListData(n, n, n));
    return result;
}
QStringList texts(const QList<ListData> &list)
{
    QStringList result;
    for (const ListData &s : list)
        result << QStringLiteral("%1/%2/%3").arg(s.voltage).arg(s.current).arg(s.time);
    return result;
}
QVariantList range(int first, int last)
{
    return {QVariant::fromValue(QModelIndex()), first, last};
}

struct Fixture
{
    explicit Fixture(QList<ListData> steps)
        : source(std::move(steps))
    {}
    QList<ListData> source;
    ListDataModel model{source, nullptr};
    QAbstractItemModelTester tester{&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning};
};
} // namespace

class TestListDataModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale::c());
        passOn = qInstallMessageHandler(screenFindings);
    }
    void cleanup()
    {
        const QStringList found = std::exchange(unexpectedFindings, {});
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
    }

    void headers()
    {
        Fixture f({});
        QCOMPARE(f.model.rowCount(), 0);
        QCOMPARE(f.model.columnCount(), 4);
        QStringList headers;
        for (int section = -1; section <= 4; ++section)
            headers << f.model.headerData(section, Qt::Horizontal).toString();
        QCOMPARE(headers, QStringList({"", "No.", "Voltage(V)", "Current(A)", "Time(s)", ""}));
        QVERIFY(!f.model.headerData(0, Qt::Vertical).isValid());
        QVERIFY(!f.model.headerData(1, Qt::Horizontal, Qt::ToolTipRole).isValid());
    }

    void data_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("role");
        QTest::addColumn<QVariant>("expected");
        const int edit = Qt::EditRole;
        QTest::newRow("No. counts from 0") << 0 << 0 << 0 << QVariant(0);
        QTest::newRow("No. edit value") << 2 << 0 << edit << QVariant(2);
        QTest::newRow("1.5 V at 3 decimals") << 0 << 1 << 0 << QVariant("1.500");
        QTest::newRow("0.5 A at 4 decimals") << 0 << 2 << 0 << QVariant("0.5000");
        QTest::newRow("2.6 s at 0 decimals") << 0 << 3 << 0 << QVariant("3");
        QTest::newRow("centred") << 1 << 3 << int(Qt::TextAlignmentRole)
                                 << QVariant(int(Qt::AlignCenter));
        QTest::newRow("row past the end") << 3 << 1 << 0 << QVariant();
        QTest::newRow("column past the end") << 0 << 4 << 0 << QVariant();
    }
    void data()
    {
        QFETCH(int, row);
        QFETCH(int, column);
        QFETCH(int, role);
        QFETCH(QVariant, expected);
        Option &option = Helper::getInstance().option;
        option.voltageDecimals = 3;
        option.currentDecimals = 4;
        option.timeDecimals = 0;
        Fixture f({{1.5, 0.5, 2.6}, {}, {-1.26, 3, 4}});
        QCOMPARE(f.model.data(f.model.index(row, column), role), expected);
    }

    void decimalsFollowTheCurrentOption()
    {
        Fixture f({{1.5, 0.25, 2.5}});
        Option first;
        first.voltageDecimals = 3;
        Helper::getInstance().option = first;
        QCOMPARE(f.model.index(0, 1).data().toString(), QStringLiteral("1.500"));
        Option second = first;
        second.voltageDecimals = 1;
        Helper::getInstance().option = second;
        QCOMPARE(f.model.index(0, 1).data().toString(), QStringLiteral("1.5"));
    }

    void staleAndForeignIndexesChangeNothing()
    {
        Fixture f(steps({1, 2, 3, 4, 5}));
        QList<ListData> other = steps({1, 2});
        ListDataModel otherModel(other, nullptr);
        const QModelIndex stale = f.model.index(4, 1);
        QVERIFY(f.model.removeRows(2, 3));
        QSignalSpy changed(&f.model, &QAbstractItemModel::dataChanged);
        QVERIFY(changed.isValid());
        for (const QModelIndex &index : {stale, otherModel.index(0, 1), QModelIndex()}) {
            QVERIFY(!f.model.data(index).isValid());
            QVERIFY(!f.model.setData(index, 9.0));
            QCOMPARE(f.model.flags(index), Qt::NoItemFlags);
        }
        QCOMPARE(changed.count(), 0);
        QCOMPARE(texts(f.source), texts(steps({1, 2})));
        QCOMPARE(texts(other), texts(steps({1, 2})));
    }

    void setData_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("role");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QString>("stored");
        QTest::newRow("voltage") << 1 << int(Qt::EditRole) << true << "7.25/20/200";
        QTest::newRow("current") << 2 << int(Qt::EditRole) << true << "2/7.25/200";
        QTest::newRow("time") << 3 << int(Qt::EditRole) << true << "2/20/7.25";
        QTest::newRow("No. accepted, nothing stored")
            << 0 << int(Qt::EditRole) << true << "2/20/200";
        QTest::newRow("display role refused") << 1 << int(Qt::DisplayRole) << false << "2/20/200";
    }
    void setData()
    {
        QFETCH(int, column);
        QFETCH(int, role);
        QFETCH(bool, accepted);
        QFETCH(QString, stored);
        Fixture f(steps({1, 2}));
        QSignalSpy changed(&f.model, &QAbstractItemModel::dataChanged);
        QVERIFY(changed.isValid());
        const QModelIndex index = f.model.index(1, column);
        QCOMPARE(f.model.setData(index, 7.25, role), accepted);
        QCOMPARE(texts(f.source).at(1), stored);
        QCOMPARE(changed.count(), accepted ? 1 : 0);
        if (accepted)
            QCOMPARE(changed.first(),
                     QVariantList({index, index, QVariant::fromValue(QVector<int>())}));
        // Only the step number is read-only.
        QCOMPARE(f.model.flags(index) & ~Qt::ItemIsEditable,
                 Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren);
        QCOMPARE(bool(f.model.flags(index) & Qt::ItemIsEditable), column != 0);
    }

    void rowOperations_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QList<int>>("expected");
        QTest::addColumn<QVariantList>("signalled");
        const QList<int> five{1, 2, 3, 4, 5};
        const int max = std::numeric_limits<int>::max();
        QTest::newRow("insert 3 at 2")
            << "insert" << 2 << 3 << true << QList<int>{1, 2, 0, 0, 0, 3, 4, 5} << range(2, 4);
        QTest::newRow("insert at the end")
            << "insert" << 5 << 2 << true << QList<int>{1, 2, 3, 4, 5, 0, 0} << range(5, 6);
        QTest::newRow("insert past the end")
            << "insert" << 6 << 1 << false << five << QVariantList();
        QTest::newRow("insert at -1") << "insert" << -1 << 1 << false << five << QVariantList();
        QTest::newRow("insert none") << "insert" << 1 << 0 << false << five << QVariantList();
        QTest::newRow("insert overflowing")
            << "insert" << 5 << max << false << five << QVariantList();
        QTest::newRow("remove 3..12")
            << "remove" << 3 << 10 << true << QList<int>{1, 2, 3} << range(3, 4);
        QTest::newRow("remove -2..1")
            << "remove" << -2 << 4 << true << QList<int>{3, 4, 5} << range(0, 1);
        QTest::newRow("remove overflowing")
            << "remove" << 4 << max << true << QList<int>{1, 2, 3, 4} << range(4, 4);
        QTest::newRow("remove past the end")
            << "remove" << 5 << 2 << true << five << QVariantList();
        QTest::newRow("remove none") << "remove" << 2 << -1 << true << five << QVariantList();
        QTest::newRow("steps before 1")
            << "steps" << 1 << 2 << true << QList<int>{1, -1, -2, 2, 3, 4, 5} << range(1, 2);
        QTest::newRow("steps at -1 append")
            << "steps" << -1 << 2 << true << QList<int>{1, 2, 3, 4, 5, -1, -2} << range(5, 6);
        QTest::newRow("steps at 5 append")
            << "steps" << 5 << 2 << true << QList<int>{1, 2, 3, 4, 5, -1, -2} << range(5, 6);
        QTest::newRow("no steps") << "steps" << 1 << 0 << true << five << QVariantList();
    }
    void rowOperations()
    {
        QFETCH(QString, operation);
        QFETCH(int, row);
        QFETCH(int, count);
        QFETCH(bool, accepted);
        QFETCH(QList<int>, expected);
        QFETCH(QVariantList, signalled);
        Fixture f(steps({1, 2, 3, 4, 5}));
        const bool removing = operation == QLatin1String("remove");
        QSignalSpy before(&f.model,
                          removing ? &QAbstractItemModel::rowsAboutToBeRemoved
                                   : &QAbstractItemModel::rowsAboutToBeInserted);
        QSignalSpy after(&f.model,
                         removing ? &QAbstractItemModel::rowsRemoved
                                  : &QAbstractItemModel::rowsInserted);
        QVERIFY(before.isValid() && after.isValid());
        if (operation == QLatin1String("insert"))
            QCOMPARE(f.model.insertRows(row, count), accepted);
        else if (removing)
            QCOMPARE(f.model.removeRows(row, count), accepted);
        else
            f.model.insertRows(row, steps({-1, -2}).mid(0, count));
        QCOMPARE(texts(f.source), texts(steps(expected)));
        QCOMPARE(before.count(), signalled.isEmpty() ? 0 : 1);
        QCOMPARE(after.count(), before.count());
        if (!signalled.isEmpty()) {
            QCOMPARE(before.first(), signalled);
            QCOMPARE(after.first(), signalled);
        }
    }

    void appendsMayTakeTheModelsOwnSteps()
    {
        Fixture f(steps({1, 2}));
        QSignalSpy inserted(&f.model, &QAbstractItemModel::rowsInserted);
        QVERIFY(inserted.isValid());
        f.model.appendRow(f.source.at(0));
        f.model.appendRows({});
        f.model.appendRows(f.source);
        f.model.insertRows(1, f.source);
        QCOMPARE(texts(f.source), texts(steps({1, 1, 2, 1, 1, 2, 1, 2, 1, 1, 2, 1})));
        QCOMPARE(inserted.count(), 3);
        QCOMPARE(inserted.at(0), range(2, 2));
        QCOMPARE(inserted.at(1), range(3, 5));
        QCOMPARE(inserted.at(2), range(1, 6));
    }

    void setSourceDataOverwritesTheOwnList()
    {
        Fixture f(steps({1, 2, 3}));
        QList<ListData> preview = steps({4, 5});
        QSignalSpy aboutToReset(&f.model, &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy reset(&f.model, &QAbstractItemModel::modelReset);
        QVERIFY(aboutToReset.isValid() && reset.isValid());
        f.model.setSourceData(preview);
        f.model.setSourceData(f.source);
        QCOMPARE(aboutToReset.count(), 2);
        QCOMPARE(reset.count(), 2);
        // Edits reach the model's own list, which no longer shares the preview's steps.
        QVERIFY(f.model.setData(f.model.index(0, 1), 0.5));
        QCOMPARE(static_cast<ListData *>(f.model.index(1, 2).internalPointer()), &f.source[1]);
        QCOMPARE(texts(f.source), QStringList({"0.5/40/400", "5/50/500"}));
        QCOMPARE(texts(preview), texts(steps({4, 5})));
    }
};

QTEST_APPLESS_MAIN(TestListDataModel)
#include "tst_listdatamodel.moc"
