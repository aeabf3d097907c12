// The editable table over the Delayer steps that the dialog will upload.
#pragma once

#include "delayertemplatemodel.h"

namespace tarn2::specific::orvo5000::programmer {

// DelayerModel is the Delayer preview table made editable and growable: the state and time of
// every step can be edited, and the dialog inserts, appends and removes steps through it. Edits go
// straight into the dialog's list, which must outlive the model.
class TARN2_SPECIFIC_EXPORT DelayerModel final : public DelayerTemplateModel
{
    Q_OBJECT
    Q_DISABLE_COPY(DelayerModel)

public:
    DelayerModel(QList<DelayerData> &data, QObject *parent);
    ~DelayerModel() override;

    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // Inserts `count` steps (On, 0 s) before `row`; `row` may equal rowCount() to append.
    // Refuses (false, nothing changed) a count below 1, a row outside 0..rowCount() or a parent.
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    // Removes the rows of row..row+count-1 that exist. Returns true even when none did.
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

    void appendRow(const DelayerData &step);
    void appendRows(const QList<DelayerData> &steps);
    // Inserts `steps` in their order before `row`; a row outside the list appends them.
    void insertRows(int row, const QList<DelayerData> &steps);
};

} // namespace tarn2::specific::orvo5000::programmer
