// The editable Delayer step table: editable state and time, and the row operations of the dialog.
#include "delayermodel.h"

namespace tarn2::specific::orvo5000::programmer {

DelayerModel::DelayerModel(QList<DelayerData> &data, QObject *parent)
    : DelayerTemplateModel(data, parent)
{}

DelayerModel::~DelayerModel() = default;

Qt::ItemFlags DelayerModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags base = DelayerTemplateModel::flags(index);
    if (!isInRange(index))
        return base;
    return index.column() == ColumnNo ? base & ~Qt::ItemIsEditable : base | Qt::ItemIsEditable;
}

bool DelayerModel::insertRows(int row, int count, const QModelIndex &parent)
{
    return insertFilledRows(row, count, parent, DelayerData(true, 0.0));
}

bool DelayerModel::removeRows(int row, int count, const QModelIndex &parent)
{
    return removeExistingRows(row, count, parent);
}

void DelayerModel::appendRow(const DelayerData &step)
{
    appendStep(step);
}

void DelayerModel::appendRows(const QList<DelayerData> &steps)
{
    appendSteps(steps);
}

void DelayerModel::insertRows(int row, const QList<DelayerData> &steps)
{
    insertSteps(row, steps);
}

} // namespace tarn2::specific::orvo5000::programmer
