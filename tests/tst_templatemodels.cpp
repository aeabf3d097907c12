// Tests of the two read-only template preview tables.
#include "delayertemplatemodel.h"
#include "helper.h"
#include "listtemplatemodel.h"
#include "modeltester.h"

#include <QSignalSpy>

using namespace tarn2::specific::orvo5000::programmer;
using modeltester::cells;

class TestTemplateModels : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modeltester::start(); }

    void previews()
    {
        Helper::getInstance().option = {{}, 1, 0, 0, 2, 3, {}}; // decimals: s 1, V 2, A 3
        modeltester::Watched<ListTemplateModel, ListData> list{{{1.5, 0.25, 2.46}, {-3, 0, 0.05}}};
        modeltester::Watched<DelayerTemplateModel, DelayerData> delayer{{{true, 0}, {false, 1.24}}};
        QStringList headers;
        const QAbstractItemModel *const models[] = {&list.model, &delayer.model};
        for (const QAbstractItemModel *model : models)
            for (int column = 0; column < model->columnCount(); ++column)
                headers << model->headerData(column, Qt::Horizontal).toString();
        QCOMPARE(headers.join('|'),
                 QStringLiteral("No.|Voltage(V)|Current(A)|Time(s)|No.|State|Time(s)"));
        QCOMPARE(list.model.flags(list.model.index(1, 3))
                     | delayer.model.flags(delayer.model.index(1, 1)),
                 Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren);
        QCOMPARE(cells(list.model, Qt::DisplayRole),
                 QVariantList({0, "1.50", "0.250", "2.5", 1, "-3.00", "0.000", "0.1"}));
        QCOMPARE(cells(delayer.model, Qt::DisplayRole),
                 QVariantList({0, "ON", "0.0", 1, "OFF", "1.2"}));

        // Edits are taken though no view makes them; the List time always becomes 15 s.
        QSignalSpy changed(&list.model, &QAbstractItemModel::dataChanged);
        QVERIFY(changed.isValid());
        for (int column : {1, 2, 3, 0})
            QVERIFY(list.model.setData(list.model.index(0, column), column + 0.25));
        QCOMPARE(cells(list.model, Qt::EditRole).mid(0, 4), QVariantList({0, 1.25, 2.25, 15.0}));
        QCOMPARE(changed.count(), 4);
    }
};

QTEST_APPLESS_MAIN(TestTemplateModels)
#include "tst_templatemodels.moc"
