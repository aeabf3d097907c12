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
    if (qstrcmp(context.category, "qt.modeltest") == 0) {
        if (std::none_of(byDesign.cbegin(), byDesign.cend(), [&](const QString &s) {
                return text.contains(s);
            }))
            unexpectedFindings << text;
    } else if (type != QtDebugMsg) { // the tester's dumps of the rows it compared
        passOn(type, context, text);
    }
}
constexpr auto findingsAsWarnings = QAbstractItemModelTester::FailureReportingMode::Warning;

QList<ListData> fiveSteps()
{
    QList<ListData> steps;
    for (int i = 1; i <= 5; ++i)
        steps << ListData(i, 10 * i, 100 * i);
    return steps;
}

QStringList texts(const QList<ListData> &steps)
{
    QStringList result;
    for (const ListData &step : steps)
        result << QStringLiteral("%1/%2/%3").arg(step.voltage).arg(step.current).arg(step.time);
    return result;
}

// Rows named by the steps they hold: n > 0 is step n of fiveSteps(), 0 an empty step, n < 0 a step
// of n V, n A and n s.
QStringList rows(std::initializer_list<int> ids)
{
    QList<ListData> steps;
    for (int id : ids)
        steps << (id > 0 ? fiveSteps().at(id - 1) : ListData(id, id, id));
    return texts(steps);
}

QVariantList range(int first, int last)
{
    return {QVariant::fromValue(QModelIndex()), first, last};
}
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
        QList<ListData> source;
        ListDataModel model(source, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.columnCount(), 4);
        QStringList headers;
        for (int section = -1; section <= 4; ++section)
            headers << model.headerData(section, Qt::Horizontal).toString();
        QCOMPARE(headers, QStringList({"", "No.", "Voltage(V)", "Current(A)", "Time(s)", ""}));
        QVERIFY(!model.headerData(4, Qt::Horizontal).isValid());
        QVERIFY(!model.headerData(0, Qt::Vertical).isValid());
        QVERIFY(!model.headerData(1, Qt::Horizontal, Qt::ToolTipRole).isValid());
    }

    void data_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("role");
        QTest::addColumn<QVariant>("expected");
        const int display = Qt::DisplayRole;
        const int edit = Qt::EditRole;
        QTest::newRow("No. counts from 0") << 0 << 0 << display << QVariant(0);
        QTest::newRow("No. edit value") << 2 << 0 << edit << QVariant(2);
        QTest::newRow("1.5 V at 3 decimals") << 0 << 1 << display << QVariant("1.500");
        QTest::newRow("-1.26 V at 3 decimals") << 2 << 1 << display << QVariant("-1.260");
        QTest::newRow("0.5 A at 4 decimals") << 0 << 2 << display << QVariant("0.5000");
        QTest::newRow("2.6 s at 0 decimals") << 0 << 3 << display << QVariant("3");
        QTest::newRow("raw voltage") << 2 << 1 << edit << QVariant(-1.26);
        QTest::newRow("raw time") << 0 << 3 << edit << QVariant(2.6);
        QTest::newRow("centred") << 1 << 3 << int(Qt::TextAlignmentRole)
                                 << QVariant(int(Qt::AlignCenter));
        QTest::newRow("no tool tip") << 0 << 1 << int(Qt::ToolTipRole) << QVariant();
        QTest::newRow("row past the end") << 3 << 1 << display << QVariant();
        QTest::newRow("column past the end") << 0 << 4 << display << QVariant();
        QTest::newRow("negative row") << -1 << 0 << display << QVariant();
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
        QList<ListData> source{{1.5, 0.5, 2.6}, {0, 0, 0}, {-1.26, 3, 4}};
        ListDataModel model(source, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QCOMPARE(model.data(model.index(row, column), role), expected);
    }

    void decimalsFollowTheCurrentOption()
    {
        QList<ListData> source{{1.5, 0.25, 2.5}};
        ListDataModel model(source, nullptr);
        Option first;
        first.voltageDecimals = 3;
        Helper::getInstance().option = first;
        QCOMPARE(model.index(0, 1).data().toString(), QStringLiteral("1.500"));
        Option second = first;
        second.voltageDecimals = 1;
        second.currentDecimals = 2;
        second.timeDecimals = 3;
        Helper::getInstance().option = second;
        QCOMPARE(model.index(0, 1).data().toString(), QStringLiteral("1.5"));
        QCOMPARE(model.index(0, 2).data().toString(), QStringLiteral("0.25"));
        QCOMPARE(model.index(0, 3).data().toString(), QStringLiteral("2.500"));
    }

    void staleAndForeignIndexes()
    {
        QList<ListData> source = fiveSteps();
        QList<ListData> other = fiveSteps();
        ListDataModel model(source, nullptr);
        ListDataModel otherModel(other, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        const QModelIndex stale = model.index(4, 1);
        QVERIFY(model.removeRows(2, 3));
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QVERIFY(changed.isValid());
        for (const QModelIndex &index : {stale, otherModel.index(0, 1), QModelIndex()}) {
            QVERIFY(!model.data(index).isValid());
            QVERIFY(!model.setData(index, 9.0));
            QCOMPARE(model.flags(index), Qt::NoItemFlags);
        }
        QCOMPARE(changed.count(), 0);
        QCOMPARE(texts(source), rows({1, 2}));
        QCOMPARE(texts(other), rows({1, 2, 3, 4, 5}));
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
        QList<ListData> source = fiveSteps();
        ListDataModel model(source, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QVERIFY(changed.isValid());
        const QModelIndex index = model.index(1, column);
        QCOMPARE(model.setData(index, 7.25, role), accepted);
        QCOMPARE(texts(source).at(1), stored);
        QCOMPARE(changed.count(), accepted ? 1 : 0);
        if (accepted)
            QCOMPARE(changed.first(),
                     QVariantList({index, index, QVariant::fromValue(QVector<int>())}));
        // Only the step number is read-only.
        QCOMPARE(bool(model.flags(index) & Qt::ItemIsEditable), column != 0);
        QVERIFY(model.flags(index) & Qt::ItemIsSelectable);
    }

    void insertEmptyRows_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("count");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<QVariantList>("signalled");
        const QStringList five = rows({1, 2, 3, 4, 5});
        QTest::newRow("3 before row 2") << 2 << 3 << rows({1, 2, 0, 0, 0, 3, 4, 5}) << range(2, 4);
        QTest::newRow("first") << 0 << 1 << rows({0, 1, 2, 3, 4, 5}) << range(0, 0);
        QTest::newRow("after the last") << 5 << 2 << rows({1, 2, 3, 4, 5, 0, 0}) << range(5, 6);
        QTest::newRow("past the end") << 6 << 1 << five << QVariantList();
        QTest::newRow("negative row") << -1 << 1 << five << QVariantList();
        QTest::newRow("no rows") << 1 << 0 << five << QVariantList();
        QTest::newRow("negative count") << 1 << -2 << five << QVariantList();
        QTest::newRow("count overflows")
            << 5 << std::numeric_limits<int>::max() << five << QVariantList();
    }
    void insertEmptyRows()
    {
        QFETCH(int, row);
        QFETCH(int, count);
        QFETCH(QStringList, expected);
        QFETCH(QVariantList, signalled);
        QList<ListData> source = fiveSteps();
        ListDataModel model(source, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QSignalSpy before(&model, &QAbstractItemModel::rowsAboutToBeInserted);
        QSignalSpy after(&model, &QAbstractItemModel::rowsInserted);
        QVERIFY(before.isValid() && after.isValid());
        QCOMPARE(model.insertRows(row, count), !signalled.isEmpty());
        QCOMPARE(texts(source), expected);
        QCOMPARE(before.count(), signalled.isEmpty() ? 0 : 1);
        QCOMPARE(after.count(), before.count());
        if (!signalled.isEmpty()) {
            QCOMPARE(before.first(), signalled);
            QCOMPARE(after.first(), signalled);
        }
    }

    void removeRows_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("count");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<QVariantList>("signalled");
        const QStringList five = rows({1, 2, 3, 4, 5});
        QTest::newRow("3 and 4 of 3..12") << 3 << 10 << rows({1, 2, 3}) << range(3, 4);
        QTest::newRow("1 and 2") << 1 << 2 << rows({1, 4, 5}) << range(1, 2);
        QTest::newRow("0 and 1 of -2..1") << -2 << 4 << rows({3, 4, 5}) << range(0, 1);
        QTest::newRow("all") << 0 << 5 << QStringList() << range(0, 4);
        QTest::newRow("count overflows")
            << 4 << std::numeric_limits<int>::max() << rows({1, 2, 3, 4}) << range(4, 4);
        QTest::newRow("past the end") << 5 << 2 << five << QVariantList();
        QTest::newRow("before the start") << -3 << 2 << five << QVariantList();
        QTest::newRow("no rows") << 0 << 0 << five << QVariantList();
        QTest::newRow("negative count") << 2 << -1 << five << QVariantList();
    }
    void removeRows()
    {
        QFETCH(int, row);
        QFETCH(int, count);
        QFETCH(QStringList, expected);
        QFETCH(QVariantList, signalled);
        QList<ListData> source = fiveSteps();
        ListDataModel model(source, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QSignalSpy before(&model, &QAbstractItemModel::rowsAboutToBeRemoved);
        QSignalSpy after(&model, &QAbstractItemModel::rowsRemoved);
        QVERIFY(before.isValid() && after.isValid());
        // Removing nothing is reported as done as well.
        QVERIFY(model.removeRows(row, count));
        QCOMPARE(texts(source), expected);
        QCOMPARE(before.count(), signalled.isEmpty() ? 0 : 1);
        QCOMPARE(after.count(), before.count());
        if (!signalled.isEmpty()) {
            QCOMPARE(before.first(), signalled);
            QCOMPARE(after.first(), signalled);
        }
    }

    void insertSteps_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("added");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<QVariantList>("signalled");
        const QStringList five = rows({1, 2, 3, 4, 5});
        QTest::newRow("2 before row 1") << 1 << 2 << rows({1, -1, -2, 2, 3, 4, 5}) << range(1, 2);
        QTest::newRow("2 before row 0") << 0 << 2 << rows({-1, -2, 1, 2, 3, 4, 5}) << range(0, 1);
        QTest::newRow("row -1 appends") << -1 << 2 << rows({1, 2, 3, 4, 5, -1, -2}) << range(5, 6);
        QTest::newRow("row count appends")
            << 5 << 2 << rows({1, 2, 3, 4, 5, -1, -2}) << range(5, 6);
        QTest::newRow("1 before the last") << 4 << 1 << rows({1, 2, 3, 4, -1, 5}) << range(4, 4);
        QTest::newRow("none at row 1") << 1 << 0 << five << QVariantList();
        QTest::newRow("none appended") << 7 << 0 << five << QVariantList();
    }
    void insertSteps()
    {
        QFETCH(int, row);
        QFETCH(int, added);
        QFETCH(QStringList, expected);
        QFETCH(QVariantList, signalled);
        QList<ListData> source = fiveSteps();
        ListDataModel model(source, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QSignalSpy spy(&model, &QAbstractItemModel::rowsInserted);
        QVERIFY(spy.isValid());
        const QList<ListData> steps = QList<ListData>({{-1, -1, -1}, {-2, -2, -2}}).mid(0, added);
        model.insertRows(row, steps);
        QCOMPARE(texts(source), expected);
        QCOMPARE(spy.count(), signalled.isEmpty() ? 0 : 1);
        if (!signalled.isEmpty())
            QCOMPARE(spy.first(), signalled);
    }

    void appendSteps()
    {
        QList<ListData> source = fiveSteps().mid(0, 2);
        ListDataModel model(source, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QSignalSpy spy(&model, &QAbstractItemModel::rowsInserted);
        QVERIFY(spy.isValid());
        model.appendRow(source.at(0));
        model.appendRows({});
        model.appendRows(source);
        model.insertRows(1, source.mid(0, 2));
        QCOMPARE(texts(source), rows({1, 1, 2, 2, 1, 1, 2, 1}));
        QCOMPARE(spy.count(), 3);
        QCOMPARE(spy.at(0), range(2, 2));
        QCOMPARE(spy.at(1), range(3, 5));
        QCOMPARE(spy.at(2), range(1, 2));
    }

    void setSourceData()
    {
        QList<ListData> source = fiveSteps();
        QList<ListData> preview = fiveSteps().mid(3);
        ListDataModel model(source, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QSignalSpy aboutToReset(&model, &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        QVERIFY(aboutToReset.isValid() && reset.isValid());
        model.setSourceData(preview);
        model.setSourceData(source);
        QCOMPARE(aboutToReset.count(), 2);
        QCOMPARE(reset.count(), 2);
        QCOMPARE(model.rowCount(), 2);
        // The model still works on its own list, which no longer shares the preview's steps.
        QVERIFY(model.setData(model.index(0, 1), 0.5));
        QCOMPARE(static_cast<ListData *>(model.index(1, 2).internalPointer()), &source[1]);
        QCOMPARE(texts(source), QStringList({"0.5/40/400", "5/50/500"}));
        QCOMPARE(texts(preview), QStringList({"4/40/400", "5/50/500"}));
    }
};

QTEST_APPLESS_MAIN(TestListDataModel)
#include "tst_listdatamodel.moc"
