// Tests of the editable Delayer step table: editable columns and the row operations' signals.
#include "delayermodel.h"
#include "helper.h"
#include "modeltester.h"

#include <QSignalSpy>

using namespace tarn2::specific::orvo5000::programmer;

class TestDelayerModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modeltester::start(); }

    void editableColumnsAndRowOperations()
    {
        Helper::getInstance().option.timeDecimals = 2;
        modeltester::Watched<DelayerModel, DelayerData> f{{{false, 1}, {false, 2}}};
        QSignalSpy inserted(&f.model, &QAbstractItemModel::rowsInserted);
        QSignalSpy removed(&f.model, &QAbstractItemModel::rowsRemoved);
        QVERIFY(inserted.isValid() && removed.isValid());
        const auto cell = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
        for (int column = 0; column < 3; ++column)
            QCOMPARE(f.model.flags(f.model.index(1, column)),
                     column ? cell | Qt::ItemIsEditable : cell);
        const QModelIndex gone = f.model.index(1, 1);

        QVERIFY(f.model.removeRows(1, 10) && f.model.removeRows(1, 1)); // the second finds nothing
        QVERIFY(!f.model.setData(gone, true) && !gone.data().isValid() && !f.model.flags(gone));
        QVERIFY(f.model.insertRows(1, 2) && !f.model.insertRows(4, 1));
        QVERIFY(f.model.setData(f.model.index(0, 2), 1.5));
        f.model.insertRows(-1, {{false, 3}});
        f.model.insertRows(f.model.rowCount(), {{true, 4}, {false, 5}});
        f.model.insertRows(1, {{false, 6}, {true, 7}});
        QCOMPARE(
            modeltester::cells(f.model, Qt::DisplayRole),
            QVariantList({0, "OFF", "1.50", 1, "OFF", "6.00", 2, "ON", "7.00", 3, "ON",  "0.00",
                          4, "ON",  "0.00", 5, "OFF", "3.00", 6, "ON", "4.00", 7, "OFF", "5.00"}));
        const QVariant root = QVariant::fromValue(QModelIndex());
        QCOMPARE(QList<QVariantList>(removed), QList<QVariantList>({{root, 1, 1}}));
        QCOMPARE(QList<QVariantList>(inserted),
                 QList<QVariantList>({{root, 1, 2}, {root, 3, 3}, {root, 4, 5}, {root, 1, 2}}));
    }
};

QTEST_APPLESS_MAIN(TestDelayerModel)
#include "tst_delayermodel.moc"
