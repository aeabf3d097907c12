// Tests of the two read-only template preview tables.
#include "delayertemplatemodel.h"
#include "helper.h"
#include "listtemplatemodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

#include <algorithm>

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

QVariantList allCells(const QAbstractItemModel &model, int role)
{
    QVariantList result;
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column)
            result << model.index(row, column).data(role);
    return result;
}
} // namespace

class TestTemplateModels : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale::c());
        passOn = qInstallMessageHandler(screenFindings);
        Option &option = Helper::getInstance().option;
        option.voltageDecimals = 2;
        option.currentDecimals = 3;
        option.timeDecimals = 1;
    }
    void cleanup()
    {
        const QStringList found = std::exchange(unexpectedFindings, {});
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
    }

    void emptyModelsKeepTheirHeaders()
    {
        QList<ListData> listSteps;
        QList<DelayerData> delayerSteps;
        ListTemplateModel listModel(listSteps, nullptr);
        DelayerTemplateModel delayerModel(delayerSteps, nullptr);
        QAbstractItemModelTester listTester(&listModel, findingsAsWarnings);
        QAbstractItemModelTester delayerTester(&delayerModel, findingsAsWarnings);
        const auto headers = [](const QAbstractItemModel &model) {
            QStringList result;
            for (int section = 0; section <= model.columnCount(); ++section)
                result << model.headerData(section, Qt::Horizontal).toString();
            return result;
        };
        QCOMPARE(listModel.rowCount(), 0);
        QCOMPARE(headers(listModel),
                 QStringList({"No.", "Voltage(V)", "Current(A)", "Time(s)", ""}));
        QCOMPARE(delayerModel.rowCount(), 0);
        QCOMPARE(headers(delayerModel), QStringList({"No.", "State", "Time(s)", ""}));
        QVERIFY(!delayerModel.headerData(0, Qt::Vertical).isValid());
        QVERIFY(!listModel.headerData(-1, Qt::Horizontal).isValid());
    }

    void values_data()
    {
        QTest::addColumn<int>("role");
        QTest::addColumn<QVariantList>("list");
        QTest::addColumn<QVariantList>("delayer");
        const QVariant centre = int(Qt::AlignCenter);
        QTest::newRow("display") << int(Qt::DisplayRole)
                                 << QVariantList(
                                        {0, "1.50", "0.250", "2.5", 1, "-3.00", "0.000", "0.1"})
                                 << QVariantList({0, "ON", "0.0", 1, "OFF", "1.2"});
        QTest::newRow("edit") << int(Qt::EditRole)
                              << QVariantList({0, 1.5, 0.25, 2.46, 1, -3.0, 0.0, 0.05})
                              << QVariantList({0, true, 0.0, 1, false, 1.24});
        QTest::newRow("alignment")
            << int(Qt::TextAlignmentRole) << QVector<QVariant>(8, centre).toList()
            << QVector<QVariant>(6, centre).toList();
        QTest::newRow("tool tip") << int(Qt::ToolTipRole) << QVector<QVariant>(8).toList()
                                  << QVector<QVariant>(6).toList();
    }
    void values()
    {
        QFETCH(int, role);
        QFETCH(QVariantList, list);
        QFETCH(QVariantList, delayer);
        QList<ListData> listSteps{{1.5, 0.25, 2.46}, {-3.0, 0.0, 0.05}};
        QList<DelayerData> delayerSteps{DelayerData(), {false, 1.24}};
        ListTemplateModel listModel(listSteps, nullptr);
        DelayerTemplateModel delayerModel(delayerSteps, nullptr);
        QAbstractItemModelTester listTester(&listModel, findingsAsWarnings);
        QAbstractItemModelTester delayerTester(&delayerModel, findingsAsWarnings);
        QCOMPARE(allCells(listModel, role), list);
        QCOMPARE(allCells(delayerModel, role), delayer);
        QVERIFY(!listModel.index(2, 0).data(role).isValid());
        QVERIFY(!delayerModel.index(0, 3).data(role).isValid());
    }

    void listSetData_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("role");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QVariantList>("step");
        QTest::newRow("voltage") << 1 << QVariant(4.5) << int(Qt::EditRole) << true
                                 << QVariantList({4.5, 2.0, 3.0});
        QTest::newRow("current") << 2 << QVariant("0.75") << int(Qt::EditRole) << true
                                 << QVariantList({1.0, 0.75, 3.0});
        QTest::newRow("time is always 15 s")
            << 3 << QVariant(4.5) << int(Qt::EditRole) << true << QVariantList({1.0, 2.0, 15.0});
        QTest::newRow("No. stores nothing")
            << 0 << QVariant(4.5) << int(Qt::EditRole) << true << QVariantList({1.0, 2.0, 3.0});
        QTest::newRow("display role refused")
            << 1 << QVariant(4.5) << int(Qt::DisplayRole) << false << QVariantList({1.0, 2.0, 3.0});
    }
    void listSetData()
    {
        QFETCH(int, column);
        QFETCH(QVariant, value);
        QFETCH(int, role);
        QFETCH(bool, accepted);
        QFETCH(QVariantList, step);
        QList<ListData> steps{{1.0, 2.0, 3.0}};
        ListTemplateModel model(steps, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QVERIFY(changed.isValid());
        const QModelIndex index = model.index(0, column);
        QCOMPARE(model.setData(index, value, role), accepted);
        QCOMPARE(QVariantList({steps[0].voltage, steps[0].current, steps[0].time}), step);
        QCOMPARE(changed.count(), accepted ? 1 : 0);
        if (accepted)
            QCOMPARE(changed.first(),
                     QVariantList({index, index, QVariant::fromValue(QVector<int>())}));
        QVERIFY(!(model.flags(index) & Qt::ItemIsEditable));
        QVERIFY(model.flags(index) & Qt::ItemIsSelectable);
        QVERIFY(!model.setData(model.index(1, column), value, Qt::EditRole));
    }

    void delayerSetData_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("state");
        QTest::addColumn<double>("time");
        QTest::newRow("index 0 is Off") << 1 << QVariant(0) << false << 2.0;
        QTest::newRow("index 1 is On") << 1 << QVariant(1) << true << 2.0;
        QTest::newRow("false") << 1 << QVariant(false) << false << 2.0;
        QTest::newRow("time") << 2 << QVariant(0.125) << true << 0.125;
        QTest::newRow("No. stores nothing") << 0 << QVariant(0) << true << 2.0;
    }
    void delayerSetData()
    {
        QFETCH(int, column);
        QFETCH(QVariant, value);
        QFETCH(bool, state);
        QFETCH(double, time);
        QList<DelayerData> steps{{true, 2.0}};
        DelayerTemplateModel model(steps, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QVERIFY(changed.isValid());
        const QModelIndex index = model.index(0, column);
        QVERIFY(model.setData(index, value));
        QCOMPARE(steps[0].state, state);
        QCOMPARE(steps[0].time, time);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().at(0).toModelIndex(), index);
        QVERIFY(!(model.flags(index) & Qt::ItemIsEditable));
        QVERIFY(!model.setData(index, value, Qt::DisplayRole));
        QCOMPARE(changed.count(), 1);
    }

    void setSourceDataResetsOverTheSameList()
    {
        QList<DelayerData> preview{DelayerData()};
        QList<DelayerData> generated{{false, 0.5}, {true, 1.5}};
        DelayerTemplateModel model(preview, nullptr);
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QSignalSpy aboutToReset(&model, &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        QVERIFY(aboutToReset.isValid() && reset.isValid());
        model.setSourceData(generated);
        QCOMPARE(aboutToReset.count(), 1);
        QCOMPARE(reset.count(), 1);
        QCOMPARE(allCells(model, Qt::DisplayRole), QVariantList({0, "OFF", "0.5", 1, "ON", "1.5"}));
        QVERIFY(model.setData(model.index(0, 1), true));
        QCOMPARE(preview[0].state, true);
        QCOMPARE(generated[0].state, false);

        QList<ListData> listPreview;
        QList<ListData> listGenerated{{1.0, 2.0, 3.0}};
        ListTemplateModel listModel(listPreview, nullptr);
        QSignalSpy listReset(&listModel, &QAbstractItemModel::modelReset);
        QVERIFY(listReset.isValid());
        listModel.setSourceData(listGenerated);
        listModel.setSourceData(listPreview);
        QCOMPARE(listReset.count(), 2);
        QCOMPARE(listPreview.size(), 1);
        QCOMPARE(listModel.index(0, 2).data().toString(), QStringLiteral("2.000"));
    }
};

QTEST_APPLESS_MAIN(TestTemplateModels)
#include "tst_templatemodels.moc"
