// The Off/On editor of the Delayer sequence table's state cells.
#include "comboboxdelegate.h"

#include "delayertemplatemodel.h"

#include <QComboBox>

namespace tarn2::specific::orvo5000::programmer {

ComboBoxDelegate::ComboBoxDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{}

ComboBoxDelegate::~ComboBoxDelegate() = default;

QWidget *ComboBoxDelegate::createEditor(QWidget *parent,
                                        const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    if (index.column() != DelayerTemplateModel::ColumnState)
        return QStyledItemDelegate::createEditor(parent, option, index);
    auto *editor = new QComboBox(parent);
    // The item index is the state: Off first, so that 0 and 1 read as false and true.
    editor->addItem(QIcon(), tr("OFF"), QVariant());
    editor->addItem(QIcon(), tr("ON"), QVariant());
    return editor;
}

void ComboBoxDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (index.column() != DelayerTemplateModel::ColumnState) {
        QStyledItemDelegate::setEditorData(editor, index);
        return;
    }
    if (auto *comboBox = qobject_cast<QComboBox *>(editor)) {
        comboBox->hidePopup();
        comboBox->setCurrentIndex(index.data(Qt::EditRole).toInt());
        // Open the list at once: there are only two states, so editing is a single choice.
        comboBox->showPopup();
    }
}

void ComboBoxDelegate::setModelData(QWidget *editor,
                                    QAbstractItemModel *model,
                                    const QModelIndex &index) const
{
    if (index.column() != DelayerTemplateModel::ColumnState) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    if (auto *comboBox = qobject_cast<QComboBox *>(editor))
        model->setData(index, comboBox->currentIndex(), Qt::EditRole);
}

} // namespace tarn2::specific::orvo5000::programmer
