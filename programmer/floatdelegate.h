// The spin box editor of the voltage, current and time cells of the List sequence table.
#pragma once

#include "tarn2_specific_export.h"

#include <QPointer>
#include <QStyledItemDelegate>

namespace tarn2::specific::orvo5000::programmer {

class RangeNotice;

// FloatDelegate edits columns 1 to 3 of ListDataModel with a frameless, right-aligned spin box
// bounded by the current channel's voltage or current range, or by the option's time limits, and
// showing the option's decimals. A value whose range the current channel does not have gets no
// editor: no voltage without a voltage range, no current without a current range. Other columns
// get the base delegate's editor.
class TARN2_SPECIFIC_EXPORT FloatDelegate final : public QStyledItemDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY(FloatDelegate)

public:
    explicit FloatDelegate(QObject *parent = nullptr);
    ~FloatDelegate() override;

    QWidget *createEditor(QWidget *parent,
                          const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor,
                      QAbstractItemModel *model,
                      const QModelIndex &index) const override;

    // Has `notice` watch every editor made from now on; none by default.
    void setRangeNotice(RangeNotice *notice);

private:
    QPointer<RangeNotice> m_notice;
};

} // namespace tarn2::specific::orvo5000::programmer
