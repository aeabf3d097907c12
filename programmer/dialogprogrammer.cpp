// Construction and teardown of the programmer dialog, and the small helpers both tabs share.
#include "dialogprogrammer.h"
#include "ui_dialogprogrammer.h"

#include "helper.h"
#include "programmeruploader.h"
#include "sequencebuilder.h"
#include "templatestream.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QProgressBar>
#include <QStatusBar>
#include <QTableView>

#include <qcustomplot.h>

namespace tarn2::specific::orvo5000::programmer {

DialogProgrammer::DialogProgrammer(const Option &option, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::DialogProgrammer)
{
    ui->setupUi(this);
    registerProgrammerMetaTypes();

    // Everything initialised below reads the option from the current one, so it goes first.
    Helper &helper = Helper::getInstance();
    helper.option = option;
    helper.currentChannel = 0;

    initWidget();
    initObject();

    on_cbbListTempType_currentIndexChanged(listActiveType);
    on_cbbDelayerTempType_currentIndexChanged(delayerActiveType);
}

DialogProgrammer::~DialogProgrammer()
{
    saveListTemplateParamsToSettings();
    saveDelayerTemplateParamsToSettings();
    delete uploader;
    // The models refer to the step lists, which go before the widgets do; a table still shown
    // would ask its model for rows while it is torn down. The tables take their models along.
    delete ui->tvListTemplate;
    delete ui->tvList;
    delete ui->tvDelayerTemplate;
    delete ui->tvDelayer;
    delete ui;
}

void DialogProgrammer::initWidget()
{
    initListWidgets();
    initDelayerWidgets();

    statusBar = new QStatusBar(this);
    statusBar->setObjectName(QStringLiteral("statusBar"));
    progressBar = new QProgressBar(statusBar);
    progressBar->setObjectName(QStringLiteral("progressBar"));
    progressBar->setTextVisible(false);
    statusBar->addPermanentWidget(progressBar);
    progressBar->hide();
    ui->gridLayout_30->addWidget(statusBar, ui->gridLayout_30->rowCount(), 0, 1, -1);

    if (!loadListTemplateParamsFromSettings()) {
        resetListTemplateParams(listTemplateParams);
        listActiveType = 0;
    }
    if (!loadDelayerTemplateParamsFromSettings()) {
        resetDelayerTemplateParams(delayerTemplateParams);
        delayerActiveType = 0;
    }
    // A stored type outside the vector would index past it; show the first template instead.
    if (listActiveType < 0 || listActiveType >= listTemplateParams.size())
        listActiveType = 0;
    if (delayerActiveType < 0 || delayerActiveType >= delayerTemplateParams.size())
        delayerActiveType = 0;
}

void DialogProgrammer::initObject()
{
    QList<QObject *> found;
    enumChildren(ui->tabList, QStringLiteral("QAbstractSpinBox"), found);
    for (QObject *object : qAsConst(found)) {
        connect(qobject_cast<QAbstractSpinBox *>(object),
                &QAbstractSpinBox::editingFinished,
                this,
                &DialogProgrammer::listSpinBoxEditingFinished);
    }

    found.clear();
    enumChildren(ui->tabList, QStringLiteral("QCheckBox"), found);
    for (QObject *object : qAsConst(found)) {
        if (!object->objectName().startsWith(QLatin1String("cbListTempInverted")))
            continue;
        connect(qobject_cast<QCheckBox *>(object),
                &QCheckBox::clicked,
                this,
                &DialogProgrammer::cbListTempInverted_clicked);
    }

    listInvalidText = addInvalidText(ui->plotListTemplate);
    delayerInvalidText = addInvalidText(ui->plotDelayerTemplate);

    found.clear();
    enumChildren(ui->tabDelayer, QStringLiteral("QAbstractSpinBox"), found);
    for (QObject *object : qAsConst(found)) {
        connect(qobject_cast<QAbstractSpinBox *>(object),
                &QAbstractSpinBox::editingFinished,
                this,
                &DialogProgrammer::delaySpinBoxEditingFinished);
    }
}

// The red "Invalid" mark of a preview plot. It sits in the middle of the axis rectangle
// whatever the axes show, so it is measured as a ratio of the rectangle, not in plot units.
QCPItemText *DialogProgrammer::addInvalidText(QCustomPlot *plot)
{
    auto *text = new QCPItemText(plot);
    text->position->setType(QCPItemPosition::ptAxisRectRatio);
    text->position->setCoords(0.5, 0.5);
    text->setPositionAlignment(Qt::AlignCenter);
    text->setColor(QColor(0xFF, 0x00, 0x00));
    QFont font = this->font();
    font.setPointSize(16);
    font.setBold(true);
    text->setFont(font);
    text->setText(tr("Invalid"));
    text->setVisible(false);
    return text;
}

// The frame all four step plots share: time along the bottom without ticks, framed by a visible
// top and right axis; previews carry a bold title row above the axis rectangle.
void DialogProgrammer::prepareStepPlot(QCustomPlot *plot, StepPlotFrame frame)
{
    plot->setMinimumHeight(200);
    plot->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    plot->legend->setVisible(frame.legend);
    plot->xAxis->setTicks(false);
    plot->xAxis2->setVisible(true);
    plot->xAxis2->setTicks(false);
    plot->yAxis->setTicks(frame.valueTicks);
    plot->yAxis2->setVisible(true);
    plot->yAxis2->setTicks(frame.rightTicks);
    if (frame.title) {
        QFont titleFont = font();
        titleFont.setPointSize(9);
        titleFont.setWeight(QFont::Bold);
        plot->plotLayout()->insertRow(0);
        plot->plotLayout()->addElement(0, 0, new QCPTextElement(plot, QString(), titleFont));
    }
}

void DialogProgrammer::showStepTable(QTableView *view, QAbstractItemModel *model)
{
    view->setModel(model);
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    view->setSelectionBehavior(QAbstractItemView::SelectItems);
}

void DialogProgrammer::trackPlotChanges(QAbstractItemModel *model, int &dirtyFrom)
{
    // Connected before the refresh, so a changed row is known when the refresh runs.
    const auto changedFrom = [&dirtyFrom](int row) {
        dirtyFrom = qMin(dirtyFrom, qMax(row, 0));
    };
    connect(model,
            &QAbstractItemModel::dataChanged,
            this,
            [changedFrom](const QModelIndex &topLeft) { changedFrom(topLeft.row()); });
    connect(model,
            &QAbstractItemModel::rowsInserted,
            this,
            [changedFrom](const QModelIndex &, int first) { changedFrom(first); });
    connect(model,
            &QAbstractItemModel::rowsRemoved,
            this,
            [changedFrom](const QModelIndex &, int first) { changedFrom(first); });
    connect(model, &QAbstractItemModel::modelReset, this, [changedFrom] { changedFrom(0); });
    connect(model, &QAbstractItemModel::layoutChanged, this, [changedFrom] { changedFrom(0); });
    connect(model, &QAbstractItemModel::rowsMoved, this, [changedFrom] { changedFrom(0); });
}

void DialogProgrammer::showInfo(const QString &text, int timeout)
{
    statusBar->setStyleSheet(QString());
    statusBar->showMessage(text, timeout);
}

void DialogProgrammer::showError(const QString &text, int timeout)
{
    statusBar->setStyleSheet(QStringLiteral("color:#ff0000"));
    statusBar->showMessage(text, timeout);
}

void DialogProgrammer::showTemplateRefused(qint64 count)
{
    showError(tr("This template would make %1 steps; at most %2 are allowed")
                  .arg(count)
                  .arg(kMaxTemplateSteps),
              5000);
}

bool DialogProgrammer::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ContextMenu) {
        if (watched == ui->tvList) {
            listCreateContextMenu();
            return true;
        }
        if (watched == ui->tvDelayer) {
            delayerCreateContextMenu();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void DialogProgrammer::selectTvItems(QTableView *view,
                                     const QModelIndex &from,
                                     const QModelIndex &to)
{
    QItemSelectionModel *selection = view->selectionModel();
    if (!selection)
        return;
    selection->clearSelection();
    if (from.isValid() && to.isValid()) {
        selection->select(QItemSelection(from, to), QItemSelectionModel::Select);
        selection->setCurrentIndex(from, QItemSelectionModel::Select);
        view->scrollTo(from, QAbstractItemView::PositionAtTop);
    }
    view->setFocus(Qt::OtherFocusReason);
}

int DialogProgrammer::enumChildren(QObject *parent, const QString &className, QList<QObject *> &out)
{
    if (!parent)
        return out.size();
    const QByteArray latin1 = className.toLatin1();
    for (QObject *child : parent->children()) {
        if (className.isEmpty() || QLatin1String(child->metaObject()->className()) == className
            || child->qt_metacast(latin1.constData())) {
            out.append(child);
        }
        enumChildren(child, className, out);
    }
    return out.size();
}

QList<QObject *> DialogProgrammer::blockChildrenSignals(QObject *parent, bool block)
{
    QList<QObject *> children;
    enumChildren(parent, QString(), children);
    for (QObject *child : qAsConst(children))
        child->blockSignals(block);
    return children;
}

} // namespace tarn2::specific::orvo5000::programmer
