// The context menus of the two sequence tables: Append, Insert, Delete and Clear.
#include "dialogprogrammer.h"
#include "ui_dialogprogrammer.h"

#include <QAction>
#include <QCursor>
#include <QItemSelectionModel>
#include <QMap>
#include <QMenu>

namespace tarn2::specific::orvo5000::programmer {

void DialogProgrammer::listCreateContextMenu()
{
    runTableContextMenu(ui->tvList, &DialogProgrammer::updateListGroupsWidget);
}

void DialogProgrammer::delayerCreateContextMenu()
{
    runTableContextMenu(ui->tvDelayer, &DialogProgrammer::updateDelayerGroupsWidget);
}

QList<QAction *> DialogProgrammer::createTableMenuActions(QTableView *view,
                                                          void (DialogProgrammer::*refresh)())
{
    QAbstractItemModel *model = view->model();
    const QModelIndex current = view->currentIndex();
    const int currentRow = current.row();

    auto *append = new QAction(QIcon(QStringLiteral(":images/append3.png")), tr("Append"), nullptr);
    auto *insert
        = new QAction(QIcon(QStringLiteral(":images/insert32.png")), tr("Insert"), nullptr);
    auto *remove = new QAction(QIcon(QStringLiteral(":images/delete.png")), tr("Delete"), nullptr);
    auto *clear = new QAction(QIcon(QStringLiteral(":images/deleteAll.png")), tr("Clear"), nullptr);
    insert->setEnabled(current.isValid());
    remove->setEnabled(current.isValid());
    clear->setEnabled(model && model->rowCount() > 0);

    connect(append, &QAction::triggered, this, [this, view, model, refresh] {
        if (model && model->insertRows(model->rowCount(), 1)) {
            view->setCurrentIndex(model->index(model->rowCount() - 1, 1));
            (this->*refresh)();
        }
    });
    connect(insert, &QAction::triggered, this, [this, view, model, refresh, currentRow] {
        if (model && model->insertRows(currentRow, 1)) {
            view->setCurrentIndex(model->index(currentRow, 1));
            (this->*refresh)();
        }
    });
    connect(remove, &QAction::triggered, this, [this, view, model, refresh] {
        if (model && view->selectionModel()) {
            QMap<int, bool> rows;
            const QModelIndexList selected = view->selectionModel()->selectedIndexes();
            for (const QModelIndex &index : selected)
                rows.insert(index.row(), true);
            // From the highest row down, so that a removal never shifts a row still to go.
            // Adjacent rows go in one call, which keeps deleting a long selection fast.
            auto it = rows.constEnd();
            while (it != rows.constBegin()) {
                --it;
                int first = it.key();
                int count = 1;
                while (it != rows.constBegin() && std::prev(it).key() == first - 1) {
                    --it;
                    --first;
                    ++count;
                }
                model->removeRows(first, count);
            }
        }
        (this->*refresh)();
    });
    connect(clear, &QAction::triggered, this, [this, model, refresh] {
        if (model && model->removeRows(0, model->rowCount()))
            (this->*refresh)();
    });
    return {append, insert, remove, clear};
}

void DialogProgrammer::runTableContextMenu(QTableView *view, void (DialogProgrammer::*refresh)())
{
    const QList<QAction *> actions = createTableMenuActions(view, refresh);
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(actions.at(0));
    menu->addAction(actions.at(1));
    menu->addSeparator();
    menu->addAction(actions.at(2));
    menu->addAction(actions.at(3));
    menu->exec(QCursor::pos());
    qDeleteAll(actions);
}

} // namespace tarn2::specific::orvo5000::programmer
