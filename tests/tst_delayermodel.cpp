// Tests of the editable Delayer step table: editable columns and the row operations' signals.
#include "delayermodel.h"
#include "helper.h"

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
constexpr auto findingsAsWarnings = QAbstractItemModelTester::FailureReportingMode::Warning;

// Steps written as "on1 off2": the state, then the time in seconds.
QString text(const QList<DelayerData> &steps)
{
    QStringList words;
    for (const DelayerData &step : steps)
        words << (step.state ? QStringLiteral("on") : QStringLiteral("off"))
                     + QString::number(step.time);
    return words.join(QLatin1Char(' '));
}
QList<DelayerData> fiveSteps()
{
    return {{true, 1}, {false, 2}, {true, 3}, {false, 4}, {true, 5}};
}
} // namespace

class TestDelayerModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale::c());
        passOn = qInstallMessageHandler(screenFindings);
        Helper::getInstance().option.timeDecimals = 2;
    }
    void cleanup()
    {
        const QStringList found = std::exchange(unexpectedFindings, {});
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
    }

    void onlyStateAndTimeAreEditable()
    {
        QList<DelayerData> steps = fiveSteps();
        DelayerModel model(steps, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QCOMPARE(model.columnCount(), 3);
        QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("State"));
        const Qt::ItemFlags cell
            = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
        QCOMPARE(model.flags(model.index(4, 0)), cell);
        QCOMPARE(model.flags(model.index(4, 1)), cell | Qt::ItemIsEditable);
        QCOMPARE(model.flags(model.index(4, 2)), cell | Qt::ItemIsEditable);
        QCOMPARE(model.flags(model.index(5, 1)), Qt::NoItemFlags);
        QCOMPARE(model.flags(QModelIndex()), Qt::NoItemFlags);
    }

    void rowOperations_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<QVariantList>("signalled");
        const QString five = QStringLiteral("on1 off2 on3 off4 on5");
        const QVariant root = QVariant::fromValue(QModelIndex());
        const int max = std::numeric_limits<int>::max();
        QTest::newRow("insert 2 at 1")
            << "insert" << 1 << 2 << true << "on1 on0 on0 off2 on3 off4 on5"
            << QVariantList({root, 1, 2});
        QTest::newRow("insert past the end")
            << "insert" << 6 << 1 << false << five << QVariantList();
        QTest::newRow("insert none") << "insert" << 0 << 0 << false << five << QVariantList();
        QTest::newRow("insert overflowing")
            << "insert" << 1 << max << false << five << QVariantList();
        QTest::newRow("remove 3..12")
            << "remove" << 3 << 10 << true << "on1 off2 on3" << QVariantList({root, 3, 4});
        QTest::newRow("remove overflowing")
            << "remove" << 2 << max << true << "on1 off2" << QVariantList({root, 2, 4});
        QTest::newRow("remove past the end")
            << "remove" << 5 << 1 << true << five << QVariantList();
        QTest::newRow("steps before 2")
            << "steps" << 2 << 2 << true << "on1 off2 off-1 on-2 on3 off4 on5"
            << QVariantList({root, 2, 3});
        QTest::newRow("steps at -1 append")
            << "steps" << -1 << 2 << true << "on1 off2 on3 off4 on5 off-1 on-2"
            << QVariantList({root, 5, 6});
        QTest::newRow("no steps") << "steps" << 2 << 0 << true << five << QVariantList();
    }
    void rowOperations()
    {
        QFETCH(QString, operation);
        QFETCH(int, row);
        QFETCH(int, count);
        QFETCH(bool, accepted);
        QFETCH(QString, expected);
        QFETCH(QVariantList, signalled);
        QList<DelayerData> steps = fiveSteps();
        DelayerModel model(steps, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        const bool removing = operation == QLatin1String("remove");
        QSignalSpy before(&model,
                          removing ? &QAbstractItemModel::rowsAboutToBeRemoved
                                   : &QAbstractItemModel::rowsAboutToBeInserted);
        QSignalSpy after(&model,
                         removing ? &QAbstractItemModel::rowsRemoved
                                  : &QAbstractItemModel::rowsInserted);
        QVERIFY(before.isValid() && after.isValid());
        if (operation == QLatin1String("insert"))
            QCOMPARE(model.insertRows(row, count), accepted);
        else if (removing)
            QCOMPARE(model.removeRows(row, count), accepted);
        else
            model.insertRows(row, QList<DelayerData>({{false, -1}, {true, -2}}).mid(0, count));
        QCOMPARE(text(steps), expected);
        QCOMPARE(before.count(), signalled.isEmpty() ? 0 : 1);
        QCOMPARE(after.count(), before.count());
        if (!signalled.isEmpty()) {
            QCOMPARE(before.first(), signalled);
            QCOMPARE(after.first(), signalled);
        }
    }

    void appendsSignalTheirRows()
    {
        QList<DelayerData> steps = fiveSteps().mid(0, 2);
        DelayerModel model(steps, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        QVERIFY(inserted.isValid());
        model.appendRow(steps.at(1));
        model.appendRows({});
        model.appendRows(steps);
        QCOMPARE(text(steps), QStringLiteral("on1 off2 off2 on1 off2 off2"));
        QCOMPARE(inserted.count(), 2);
        QCOMPARE(inserted.first().mid(1), QVariantList({2, 2}));
        QCOMPARE(inserted.last().mid(1), QVariantList({3, 5}));
        QVERIFY(model.setData(model.index(3, 1), 0));
        QCOMPARE(model.index(3, 1).data().toString(), QStringLiteral("OFF"));
    }
};

QTEST_APPLESS_MAIN(TestDelayerModel)
#include "tst_delayermodel.moc"
