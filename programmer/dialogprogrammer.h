// The programmer dialog: List and Delayer templates, previews, sequences, files and uploads.
#pragma once

#include "records.h"
#include "templateparam.h"

#include <QDialog>
#include <QList>
#include <QVector>

class QAbstractItemModel;
class QAction;
class QCPCurve;
class QCPItemText;
class QCustomPlot;
class QModelIndex;
class QProgressBar;
class QStatusBar;
class QTableView;

namespace Ui {
class DialogProgrammer;
}

namespace tarn2::specific::orvo5000::programmer {

class ListTemplateModel;
class ListDataModel;
class DelayerTemplateModel;
class DelayerModel;
class ProgrammerUploader;
class RangeNotice;

// DialogProgrammer is the module's one dialog. The host constructs it with the instrument's
// Option, listens to its signals and drives uploads with uploaderNext() and uploaderStop(); the
// dialog never talks to the instrument and never opens a file dialog itself. Constructing a dialog
// makes its Option the process-wide current option that the models, editors and uploaders read.
class TARN2_SPECIFIC_EXPORT DialogProgrammer : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(DialogProgrammer)

public:
    using UploadMode = programmer::UploadMode;

    explicit DialogProgrammer(const Option &option, QWidget *parent = nullptr);
    ~DialogProgrammer() override;

    // The host's side of an upload run.
    void uploaderNext();
    void uploaderStop();

    // Sequence files, called by the host from its handlers of the file signals.
    bool listSaveData(const QString &path, const QList<ListData> &datas);
    QList<ListData> listLoadData(const QString &path);
    bool delayerSaveData(const QString &path, const QList<DelayerData> &datas);
    QList<DelayerData> delayerLoadData(const QString &path);
    // The most bytes the head and `maxCount` step lines of a sequence file can take, far beyond
    // what any saver writes: the loaders read no more than those lines, and refuse a file whose
    // lines need more bytes than this as unreadable.
    static qint64 sequenceFileBound(int maxCount);
    // The sequences the tables show, read-only, for a host's checks, undo and copy.
    const QList<ListData> &listSequence() const;
    const QList<DelayerData> &delayerSequence() const;

    // For a host that builds on the dialog: replacing a tab's sequence as a load does (the table,
    // the step counter and the plot follow; `endState` is the end-state item's data, "OFF", "ON"
    // or "LAST", and any other clears the choice, as a load does), the tab in front, a step's
    // row, the current template appended, the status line, and the controls a host decorates.
    void setListSequence(const QList<ListData> &steps, int cycles, const QString &endState);
    void setDelayerSequence(const QList<DelayerData> &steps, int cycles, const QString &endState);
    UploadMode currentMode() const;
    void setCurrentMode(UploadMode mode);
    // Selects the 0-based row of a step and scrolls to it; nothing for a row the table lacks.
    void selectStep(UploadMode mode, int row);
    void appendTemplate(UploadMode mode);
    QString statusMessage() const;
    // Whether the status line shows an error (in red) rather than information.
    bool statusIsError() const;
    enum class Control {
        Tabs,
        Channel,
        Cycles,
        EndState,
        Steps,
        StepCount,
        TemplateSteps,
        TemplateType,
        TemplateObject,
        TemplateReset,
        TemplateResetAll,
        TemplateAppend,
        TemplateInsert,
        Save,
        Load,
        Upload,
        // The splitters between each plot and its table.
        SequenceSplitter,
        TemplateSplitter,
    };
    // Null for a control the tab of `mode` does not have (the Delayer has no reset buttons).
    // TemplateObject is the List's Object choice and the Delayer's Pattern.
    QWidget *control(UploadMode mode, Control control) const;
    QTableView *sequenceView(UploadMode mode) const;
    // Gives each template editor without a tool tip the text of the label beside it.
    void explainEditorsByTheirLabels();
    // Gives each template editor without a tool tip a sentence on what it does to the steps.
    void explainTemplateEditors();
    // Has a RangeNotice watch every spin box of the dialog and every cell editor of the List
    // table, its sentences shown on the status line; returns it. Without this call the dialog's
    // boxes refuse out-of-range keystrokes silently, as before.
    RangeNotice *guardRanges();

    void uploaderStart(UploadMode mode);
    void setupUploader(UploadMode mode);
    UploadParam getUploadParamFromUI(UploadMode mode);

    void showInfo(const QString &text, int timeout);
    void showError(const QString &text, int timeout);

    bool eventFilter(QObject *watched, QEvent *event) override;

    void selectTvItems(QTableView *view, const QModelIndex &from, const QModelIndex &to);
    int enumChildren(QObject *parent, const QString &className, QList<QObject *> &out);
    QList<QObject *> blockChildrenSignals(QObject *parent, bool block);

signals:
    void listSaveToCSV(const QList<ListData> &datas, const UploadParam &param);
    void listLoadFromCSV(QList<ListData> &datas, UploadParam &param);
    void delayerSaveToCSV(const QList<DelayerData> &datas, const UploadParam &param);
    void delayerLoadFromCSV(QList<DelayerData> &datas, UploadParam &param);
    void uploaderStarted(const UploadParam &param);
    void uploaderNextData(int dataIndex, const ProgrammerData &data);
    void uploaderFinished();
    void uploaderError(const QString &e);
    void uploaderStoped();

private slots:
    void on_cbbListTempType_currentIndexChanged(int index);
    void on_cbbListTempObject_currentIndexChanged(int index);
    void on_btnReset_clicked();
    void on_btnResetAll_clicked();
    void on_cbbDelayerTempType_currentIndexChanged(int index);
    void on_actionSaveList_triggered();
    void on_actionloadList_triggered();
    void on_actionSaveDelayer_triggered();
    void on_actionLoadDelayer_triggered();
    void on_cbbListCH_currentIndexChanged(int index);
    void on_btnListTemplateAppend_clicked();
    void on_btnListTemplateInsert_clicked();
    void on_actionListUpload_triggered();
    void on_actionDelayerUpload_triggered();
    void on_cbbDelayerTempPattern_currentIndexChanged(int index);
    void on_btnDelayerTemplateAppend_clicked();
    void on_btnDelayerTemplateInsert_clicked();

private:
    // Construction
    void initWidget();
    void initObject();
    QCPItemText *addInvalidText(QCustomPlot *plot);
    // The red status message of a template refused for the number of steps it would make.
    void showTemplateRefused(qint64 count);
    struct StepPlotFrame
    {
        bool legend;
        bool valueTicks;
        bool rightTicks;
        bool title;
    };
    void prepareStepPlot(QCustomPlot *plot, StepPlotFrame frame);
    void showStepTable(QTableView *view, QAbstractItemModel *model);
    // Keeps `dirtyFrom` at the first row of `model` that changed since its plot was refreshed.
    void trackPlotChanges(QAbstractItemModel *model, int &dirtyFrom);

    // List tab
    void initListWidgets();
    ListTemplateParam &activeListTemplate();
    void listSpinBoxEditingFinished();
    void cbListTempInverted_clicked(bool value);
    void update_ui_from_list_tempparam(const ListTemplateParam &p);
    void update_list_tempparam_from_ui(ListTemplateParam *p);
    void make_list_data(const ListTemplateParam &p);
    void make_list_plot_data(const QList<ListData> &list,
                             bool voltage,
                             QVector<double> &x,
                             QVector<double> &y);
    void update_list_plot(const ListTemplateParam &p, QVector<double> &x, QVector<double> &y);
    void updateListGroupsWidget();
    void update_list_data_model(const QList<ListData> &list);

    // Delayer tab
    void initDelayerWidgets();
    DelayerTemplateParam &activeDelayerTemplate();
    void delaySpinBoxEditingFinished();
    void update_ui_from_delayer_tempparam(const DelayerTemplateParam &p);
    void update_delayer_tempparam_from_ui(DelayerTemplateParam *p);
    void make_delayer_data(const DelayerTemplateParam &p);
    void
    make_delayer_plot_data(const QList<DelayerData> &list, QVector<double> &x, QVector<double> &y);
    void update_delayer_plot(const DelayerTemplateParam &p, QVector<double> &x, QVector<double> &y);
    void updateDelayerGroupsWidget();
    void update_delayer_data_model(const QList<DelayerData> &list);

    // Template settings
    bool loadListTemplateParamsFromSettings();
    bool loadDelayerTemplateParamsFromSettings();
    void saveListTemplateParamsToSettings();
    void saveDelayerTemplateParamsToSettings();

    // Context menus
    void listCreateContextMenu();
    void delayerCreateContextMenu();
    void runTableContextMenu(QTableView *view, void (DialogProgrammer::*refresh)());
    // Append, Insert, Delete and Clear for `view`, without parent: the caller deletes them.
    QList<QAction *> createTableMenuActions(QTableView *view, void (DialogProgrammer::*refresh)());

    Ui::DialogProgrammer *ui = nullptr;

    QVector<ListTemplateParam> listTemplateParams;
    QList<ListData> listTemplateData;
    QList<ListData> listData;
    QVector<DelayerTemplateParam> delayerTemplateParams;
    QList<DelayerData> delayerTemplateData;
    QList<DelayerData> delayerData;
    int listActiveType = 0;
    int delayerActiveType = 0;

    ListTemplateModel *listTemplateModel = nullptr;
    ListDataModel *listDataModel = nullptr;
    DelayerTemplateModel *delayerTemplateModel = nullptr;
    DelayerModel *delayerDataModel = nullptr;

    QCPCurve *listTemplateCurve = nullptr;
    QCPCurve *listVoltageCurve = nullptr;
    QCPCurve *listCurrentCurve = nullptr;
    QCPCurve *delayerTemplateCurve = nullptr;
    QCPCurve *delayerCurve = nullptr;
    QCPItemText *listInvalidText = nullptr;
    // The first step of each sequence whose plot points may be out of date (INT_MAX when none
    // is), kept by the table models' signals, and the tick scale the points were computed with.
    int listPlotDirtyFrom = 0;
    int delayerPlotDirtyFrom = 0;
    double listPlotScale = 0.0;
    double delayerPlotScale = 0.0;
    QCPItemText *delayerInvalidText = nullptr;

    QStatusBar *statusBar = nullptr;
    QProgressBar *progressBar = nullptr;
    ProgrammerUploader *uploader = nullptr;
};

} // namespace tarn2::specific::orvo5000::programmer
