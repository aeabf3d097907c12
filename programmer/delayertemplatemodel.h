// The read-only table that previews the Delayer steps of the current template.
#pragma once

#include "steptablemodel.h"

namespace tarn2::specific::orvo5000::programmer {

// DelayerTemplateModel shows the On/Off steps a Delayer template would generate. It works on the
// dialog's preview list (which must outlive it) and is refreshed by setSourceData(). Views cannot
// edit it; DelayerModel builds the editable sequence table on it.
class TARN2_SPECIFIC_EXPORT DelayerTemplateModel : public StepTableModel<DelayerData, 3>
{
    Q_OBJECT
    Q_DISABLE_COPY(DelayerTemplateModel)

public:
    enum Column { ColumnNo = 0, ColumnState, ColumnTime, ColumnCount };

    DelayerTemplateModel(QList<DelayerData> &data, QObject *parent);
    ~DelayerTemplateModel() override;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
};

} // namespace tarn2::specific::orvo5000::programmer
