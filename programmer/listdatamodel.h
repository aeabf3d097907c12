// The editable table over the List steps that the dialog will upload.
#pragma once

#include "steptablemodel.h"

namespace tarn2::specific::orvo5000::programmer {

// ListDataModel shows one List step per row and writes every edit straight into the list it was
// given, which belongs to the dialog and must outlive the model. Column 0 numbers the rows from 0;
// the numbers follow the decimals of Helper's current option at every call, so a second dialog
// changes what this one shows. Limits are the editors' business: the model stores what it is given.
class TARN2_SPECIFIC_EXPORT ListDataModel final : public StepTableModel<ListData, 4>
{
    Q_OBJECT
    Q_DISABLE_COPY(ListDataModel)

public:
    enum Column { ColumnNo = 0, ColumnVoltage, ColumnCurrent, ColumnTime, ColumnCount };

    ListDataModel(QList<ListData> &data, QObject *parent);
    ~ListDataModel() override;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // Inserts `count` steps of 0 V, 0 A, 0 s before `row`; `row` may equal rowCount() to append.
    // Refuses (false, nothing changed) a count below 1, a row outside 0..rowCount() or a parent.
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    // Removes the rows of row..row+count-1 that exist. Returns true even when none did.
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

    void appendRow(const ListData &step);
    void appendRows(const QList<ListData> &steps);
    // Inserts `steps` in their order before `row`; a row outside the list appends them.
    void insertRows(int row, const QList<ListData> &steps);
};

} // namespace tarn2::specific::orvo5000::programmer
