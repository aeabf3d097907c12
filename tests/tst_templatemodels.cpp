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
        QStringList headers;
        for (const QAbstractItemModel *model : {static_cast<QAbstractItemModel *>(&listModel),
                                                static_cast<QAbstractItemModel *>(&delayerModel)})
            for (int section = -1; section <= model->columnCount(); ++section)
                headers << model->headerData(section, Qt::Horizontal).toString();
        QCOMPARE(headers.join(QLatin1Char('|')),
                 QStringLiteral("|No.|Voltage(V)|Current(A)|Time(s)||"
                                "|No.|State|Time(s)|"));
        QCOMPARE(listModel.rowCount() + delayerModel.rowCount(), 0);
        QVERIFY(!delayerModel.headerData(0, Qt::Vertical).isValid());
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

    void setData_data()
    {
        QTest::addColumn<bool>("delayer");
        QTest::addColumn<int>("column");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QVariantList>("step");
        QTest::newRow("voltage") << false << 1 << QVariant(4.5) << QVariantList{0, 4.5, 2.0, 3.0};
        QTest::newRow("current") << false << 2 << QVariant("0.75")
                                 << QVariantList{0, 1.0, 0.75, 3.0};
        QTest::newRow("time is always 15 s")
            << false << 3 << QVariant(4.5) << QVariantList{0, 1.0, 2.0, 15.0};
        QTest::newRow("list No. stores nothing")
            << false << 0 << QVariant(4.5) << QVariantList{0, 1.0, 2.0, 3.0};
        QTest::newRow("state index 0 is Off")
            << true << 1 << QVariant(0) << QVariantList{0, false, 2.0};
        QTest::newRow("state false") << true << 1 << QVariant(false) << QVariantList{0, false, 2.0};
        QTest::newRow("delay time") << true << 2 << QVariant(0.125) << QVariantList{0, true, 0.125};
        QTest::newRow("delayer No. stores nothing")
            << true << 0 << QVariant(0) << QVariantList{0, true, 2.0};
    }
    void setData()
    {
        QFETCH(bool, delayer);
        QFETCH(int, column);
        QFETCH(QVariant, value);
        QFETCH(QVariantList, step);
        QList<ListData> listSteps{{1.0, 2.0, 3.0}};
        QList<DelayerData> delayerSteps{{true, 2.0}};
        ListTemplateModel listModel(listSteps, nullptr);
        DelayerTemplateModel delayerModel(delayerSteps, nullptr);
        QAbstractItemModel &model
            = delayer ? static_cast<QAbstractItemModel &>(delayerModel) : listModel;
        QAbstractItemModelTester tester(&model, findingsAsWarnings);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QVERIFY(changed.isValid());
        const QModelIndex index = model.index(0, column);
        QVERIFY(!model.setData(index, value, Qt::DisplayRole));
        QVERIFY(!model.setData(model.index(1, column), value));
        QVERIFY(model.setData(index, value));
        QCOMPARE(allCells(model, Qt::EditRole), step);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first(),
                 QVariantList({index, index, QVariant::fromValue(QVector<int>())}));
        // The views can never edit a preview.
        QCOMPARE(model.flags(index),
                 Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren);
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
        QAbstractItemModelTester listTester(&listModel, findingsAsWarnings);
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
