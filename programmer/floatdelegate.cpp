// The bounded spin box editor of the List sequence table's value cells.
#include "floatdelegate.h"

#include "rangenotice.h"

#include "helper.h"
#include "listdatamodel.h"

#include <QDoubleSpinBox>

namespace tarn2::specific::orvo5000::programmer {

namespace {
bool isValueColumn(int column)
{
    return column >= ListDataModel::ColumnVoltage && column <= ListDataModel::ColumnTime;
}
} // namespace

FloatDelegate::FloatDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{}

FloatDelegate::~FloatDelegate() = default;

QWidget *FloatDelegate::createEditor(QWidget *parent,
                                     const QStyleOptionViewItem &option,
                                     const QModelIndex &index) const
{
    const int column = index.column();
    if (!isValueColumn(column))
        return QStyledItemDelegate::createEditor(parent, option, index);

    const Helper &helper = Helper::getInstance();
    const int channel = helper.currentChannel;
    // A value whose range the current option does not describe (a channel it does not have, or a
    // current where the channel lists its voltage range only) has no limits to offer; editing it
    // unbounded would let anything through, so there is no editor.
    if (column == ListDataModel::ColumnVoltage && getChannelRange(channel).isEmpty())
        return nullptr;
    if (column == ListDataModel::ColumnCurrent && !hasChannelRanges(channel))
        return nullptr;

    auto *editor = new QDoubleSpinBox(parent);
    editor->setFrame(false);
    // The bounds are set while 3 or 4 decimals are in effect and only then the option's decimals:
    // this order is deliberate and decides how the bounds are rounded.
    editor->setDecimals(column == ListDataModel::ColumnCurrent ? 4 : 3);
    switch (column) {
    case ListDataModel::ColumnVoltage: {
        const QPair<double, double> &range = getVRangeOfChannel(channel);
        editor->setMinimum(range.first);
        editor->setMaximum(range.second);
        editor->setDecimals(helper.option.voltageDecimals);
        break;
    }
    case ListDataModel::ColumnCurrent: {
        const QPair<double, double> &range = getCRangeOfChannel(channel);
        editor->setMinimum(range.first);
        editor->setMaximum(range.second);
        editor->setDecimals(helper.option.currentDecimals);
        break;
    }
    default:
        editor->setMinimum(helper.option.timeMin);
        editor->setMaximum(helper.option.timeMax);
        editor->setDecimals(helper.option.timeDecimals);
        break;
    }
    editor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (m_notice)
        m_notice->watch(editor,
                        column == ListDataModel::ColumnVoltage   ? QStringLiteral("V")
                        : column == ListDataModel::ColumnCurrent ? QStringLiteral("A")
                                                                 : QStringLiteral("s"));
    return editor;
}

void FloatDelegate::setRangeNotice(RangeNotice *notice)
{
    m_notice = notice;
}

void FloatDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (!isValueColumn(index.column())) {
        QStyledItemDelegate::setEditorData(editor, index);
        return;
    }
    if (auto *spinBox = qobject_cast<QDoubleSpinBox *>(editor))
        spinBox->setValue(index.data(Qt::EditRole).toDouble());
}

void FloatDelegate::setModelData(QWidget *editor,
                                 QAbstractItemModel *model,
                                 const QModelIndex &index) const
{
    if (!isValueColumn(index.column())) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    if (auto *spinBox = qobject_cast<QDoubleSpinBox *>(editor))
        model->setData(index, spinBox->value(), Qt::EditRole);
}

} // namespace tarn2::specific::orvo5000::programmer
