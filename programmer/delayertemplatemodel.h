// The read-only table that previews the Delayer steps of the current template.
#pragma once

#include "records.h"

#include <QAbstractTableModel>
#include <QStringList>

namespace tarn2::specific::orvo5000::programmer {

// DelayerTemplateModel shows the On/Off steps a Delayer template would generate. It works on the
// dialog's preview list (which must outlive it) and is refreshed by setSourceData(). Views cannot
// edit it; DelayerModel builds the editable sequence table on it and reaches the list through the
// protected members.
class TARN2_SPECIFIC_EXPORT DelayerTemplateModel : public QAbstractTableModel
{
    Q_OBJECT
    Q_DISABLE_COPY(DelayerTemplateModel)

public:
    enum Column { ColumnNo = 0, ColumnState, ColumnTime, ColumnCount };

    DelayerTemplateModel(QList<DelayerData> &data, QObject *parent);
    ~DelayerTemplateModel() override;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex
    index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // Overwrites the list with `data` (unless both already share their storage) and resets.
    void setSourceData(QList<DelayerData> &data);

protected:
    // True for an index of this model whose row and column exist.
    bool isInRange(const QModelIndex &index) const;

    QList<DelayerData> &m_data;
    QStringList m_headers;
};

} // namespace tarn2::specific::orvo5000::programmer
