// The Off/On choice that edits the state cells of the Delayer sequence table.
#pragma once

#include "tarn2_specific_export.h"

#include <QStyledItemDelegate>

namespace tarn2::specific::orvo5000::programmer {

// ComboBoxDelegate edits column 1 of DelayerModel with a combo box of "OFF" (index 0) and "ON"
// (index 1) whose list opens as soon as editing starts; the chosen index is stored as the state.
// Other columns, the time among them, get the base delegate's editor.
class TARN2_SPECIFIC_EXPORT ComboBoxDelegate final : public QStyledItemDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY(ComboBoxDelegate)

public:
    explicit ComboBoxDelegate(QObject *parent = nullptr);
    ~ComboBoxDelegate() override;

    QWidget *createEditor(QWidget *parent,
                          const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor,
                      QAbstractItemModel *model,
                      const QModelIndex &index) const override;
};

} // namespace tarn2::specific::orvo5000::programmer
