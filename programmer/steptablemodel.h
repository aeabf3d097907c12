// What the four step tables have in common: rows over a list of steps that belongs to the dialog.
#pragma once

#include "records.h"
#include "tarn2_specific_export.h"

#include <QAbstractTableModel>
#include <QStringList>

namespace tarn2::specific::orvo5000::programmer {

// StepTableModel is a table of one step per row over a list the dialog owns (which must outlive
// the model), with `Columns` columns, the step number first. It answers the structural questions
// alike for every step table and rejects indexes that are not its own; the row operations are for
// the editable tables, which make them public. What a cell shows and takes is each table's own.
template<class Step, int Columns> class StepTableModel : public QAbstractTableModel
{
public:
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex
    index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    // Overwrites the list with `data` (unless both already share their storage) and resets.
    void setSourceData(QList<Step> &data);

protected:
    StepTableModel(QList<Step> &data, const QStringList &headers, QObject *parent);
    ~StepTableModel() override;

    // True for an index of this model whose row and column exist.
    bool isInRange(const QModelIndex &index) const;

    // Inserts `count` copies of `fill` before `row`; refuses (false, nothing changed) a count
    // below 1, a row outside 0..rowCount() or a parent.
    bool insertFilledRows(int row, int count, const QModelIndex &parent, const Step &fill);
    // Removes the rows of row..row+count-1 that exist; true even when none did.
    bool removeExistingRows(int row, int count, const QModelIndex &parent);
    void appendStep(const Step &step);
    void appendSteps(const QList<Step> &steps);
    // Inserts `steps` in their order before `row`; a row outside the list appends them.
    void insertSteps(int row, const QList<Step> &steps);

    QList<Step> &m_data;
    QStringList m_headers;
};

extern template class TARN2_SPECIFIC_EXPORT StepTableModel<ListData, 4>;
extern template class TARN2_SPECIFIC_EXPORT StepTableModel<DelayerData, 3>;

} // namespace tarn2::specific::orvo5000::programmer
