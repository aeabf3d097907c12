// The read-only table that previews the List steps of the current template.
#pragma once

#include "steptablemodel.h"

namespace tarn2::specific::orvo5000::programmer {

// ListTemplateModel shows the steps a List template would generate, before the user adds them to
// the sequence. It works on the dialog's preview list (which must outlive it) and is refreshed by
// setSourceData() whenever the template changes. Views cannot edit it; setData() is there for
// code, and stores 15.0 s into the time column whatever it is given.
class TARN2_SPECIFIC_EXPORT ListTemplateModel final : public StepTableModel<ListData, 4>
{
    Q_OBJECT
    Q_DISABLE_COPY(ListTemplateModel)

public:
    enum Column { ColumnNo = 0, ColumnVoltage, ColumnCurrent, ColumnTime, ColumnCount };

    ListTemplateModel(QList<ListData> &data, QObject *parent);
    ~ListTemplateModel() override;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
};

} // namespace tarn2::specific::orvo5000::programmer
