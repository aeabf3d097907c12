// The panel's filters, table and buttons.
#include "historypanel.h"

#include "historymodel.h"

#include <character.h>
#include <history.h>
#include <historyexport.h>

#include <QComboBox>
#include <QDateEdit>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QVBoxLayout>

namespace tarn::host {

using history::HistoryRecord;

namespace {
// The earliest date the filter offers stands for "any date".
const QDate anyDate(2000, 1, 1);
} // namespace

HistoryPanel::HistoryPanel(history::History *history,
                           const sim::InstrumentDescription &description,
                           QWidget *parent)
    : QWidget(parent)
    , m_history(history)
    , m_description(description)
    , m_model(new HistoryModel(this))
    , m_instrument(new QLineEdit(this))
    , m_channel(new QSpinBox(this))
    , m_outcome(new QComboBox(this))
    , m_since(new QDateEdit(this))
    , m_text(new QLineEdit(this))
    , m_table(new QTableView(this))
    , m_open(new QPushButton(tr("Open in Editor"), this))
    , m_plot(new QPushButton(tr("Plot"), this))
    , m_export(new QPushButton(tr("Export..."), this))
    , m_note(new QLabel(this))
{
    m_instrument->setObjectName(QStringLiteral("historyInstrument"));
    m_instrument->setPlaceholderText(tr("Instrument"));
    m_instrument->setMinimumWidth(140);
    m_channel->setObjectName(QStringLiteral("historyChannel"));
    m_channel->setRange(0, qMax(1, description.channels.size()));
    m_channel->setSpecialValueText(tr("Any channel"));
    m_outcome->setObjectName(QStringLiteral("historyOutcome"));
    m_outcome->addItem(tr("Any outcome"), QString());
    for (const char *outcome : {"verified",
                                "refused",
                                "mismatch",
                                "timed-out",
                                "link-lost",
                                "cancelled",
                                "ended",
                                "failed",
                                "cut-off",
                                "running"})
        m_outcome->addItem(QLatin1String(outcome), QLatin1String(outcome));
    m_since->setObjectName(QStringLiteral("historySince"));
    m_since->setMinimumDate(anyDate);
    m_since->setSpecialValueText(tr("Any date"));
    m_since->setCalendarPopup(true);
    m_since->setDate(anyDate);
    m_text->setObjectName(QStringLiteral("historyText"));
    m_text->setPlaceholderText(tr("Search"));
    m_text->setClearButtonEnabled(true);
    m_text->setMinimumWidth(140);
    m_table->setObjectName(QStringLiteral("historyTable"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->verticalHeader()->hide();
    m_open->setObjectName(QStringLiteral("historyOpen"));
    m_open->setToolTip(tr("Put the record's sequence into its tab, as one change to undo"));
    m_plot->setObjectName(QStringLiteral("historyPlot"));
    m_plot->setToolTip(
        tr("Draw a run over its plan, or two runs over each other, in the run view"));
    m_export->setObjectName(QStringLiteral("historyExport"));
    m_export->setToolTip(tr("Save the sequence file, and a run's trace beside it"));
    m_note->setObjectName(QStringLiteral("historyNote"));
    m_note->setWordWrap(true);

    auto *filters = new QHBoxLayout;
    filters->addWidget(m_instrument);
    filters->addWidget(m_channel);
    filters->addWidget(m_outcome);
    filters->addWidget(m_since);
    filters->addWidget(m_text, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_note, 1);
    buttons->addWidget(m_open);
    buttons->addWidget(m_plot);
    buttons->addWidget(m_export);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(filters);
    layout->addWidget(m_table, 1);
    layout->addLayout(buttons);

    connect(m_instrument, &QLineEdit::textChanged, this, &HistoryPanel::refresh);
    connect(m_text, &QLineEdit::textChanged, this, &HistoryPanel::refresh);
    connect(m_channel, qOverload<int>(&QSpinBox::valueChanged), this, &HistoryPanel::refresh);
    connect(
        m_outcome, qOverload<int>(&QComboBox::currentIndexChanged), this, &HistoryPanel::refresh);
    connect(m_since, &QDateEdit::dateChanged, this, &HistoryPanel::refresh);
    connect(m_table->selectionModel(),
            &QItemSelectionModel::selectionChanged,
            this,
            &HistoryPanel::updateButtons);
    connect(m_open, &QPushButton::clicked, this, [this] {
        const QList<HistoryRecord> records = selectedRecords(true);
        if (records.size() == 1)
            emit openRequested(records.first());
    });
    connect(m_plot, &QPushButton::clicked, this, [this] {
        const QList<HistoryRecord> runs = selectedRecords(true);
        if (!runs.isEmpty())
            emit plotRequested(runs);
    });
    connect(m_export, &QPushButton::clicked, this, &HistoryPanel::chooseExport);
    refresh();
}

HistoryPanel::~HistoryPanel() = default;

void HistoryPanel::refresh()
{
    history::HistoryStore *store = m_history->reader();
    if (!store) {
        m_note->setText(m_history->error());
        return;
    }
    history::HistoryFilter filter;
    filter.instrument = m_instrument->text();
    filter.channel = m_channel->value();
    filter.outcome = m_outcome->currentData().toString();
    if (m_since->date() > anyDate)
        filter.since = QDateTime(m_since->date(), QTime(0, 0));
    filter.text = m_text->text();
    filter.limit = 1000;
    const QStringList selected = [this] {
        QStringList names;
        for (const QModelIndex &index : m_table->selectionModel()->selectedRows())
            names << m_model->record(index.row()).name();
        return names;
    }();
    m_model->setRecords(store->list(filter));
    m_note->setText(m_model->rowCount() == filter.limit
                        ? tr("The newest %1 records that match").arg(filter.limit)
                        : QString());
    select(selected);
}

void HistoryPanel::select(const QStringList &names)
{
    QItemSelection selection;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (names.contains(m_model->record(row).name()))
            selection.select(m_model->index(row, 0),
                             m_model->index(row, HistoryModel::ColumnCount - 1));
    }
    m_table->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    updateButtons();
}

QList<HistoryRecord> HistoryPanel::selectedRecords(bool full)
{
    QList<HistoryRecord> records;
    history::HistoryStore *store = m_history->reader();
    for (const QModelIndex &index : m_table->selectionModel()->selectedRows()) {
        const HistoryRecord summary = m_model->record(index.row());
        const std::optional<HistoryRecord> record
            = full && store ? store->record(summary.id, true) : std::optional(summary);
        if (record)
            records << *record;
    }
    std::sort(records.begin(), records.end(), [](const HistoryRecord &a, const HistoryRecord &b) {
        return a.started < b.started;
    });
    return records;
}

void HistoryPanel::updateButtons()
{
    const QList<HistoryRecord> selected = selectedRecords(false);
    const bool runs = std::all_of(selected.cbegin(), selected.cend(), [](const HistoryRecord &r) {
        return r.kind == HistoryRecord::Kind::Run;
    });
    m_open->setEnabled(selected.size() == 1);
    m_export->setEnabled(selected.size() == 1);
    m_plot->setEnabled(runs && (selected.size() == 1 || selected.size() == 2));
}

bool HistoryPanel::exportSelected(const QString &sequencePath,
                                  const QString &tracePath,
                                  QString *error)
{
    const QList<HistoryRecord> selected = selectedRecords(true);
    if (selected.size() != 1) {
        *error = tr("Select one record to export");
        return false;
    }
    const HistoryRecord &record = selected.first();
    using tarn2::util::character::Character;
    if (!Character::csvSave(sequencePath, history::sequenceLines(record, m_description))) {
        *error = tr("Cannot write %1").arg(sequencePath);
        return false;
    }
    if (record.kind == HistoryRecord::Kind::Run
        && !Character::csvSave(tracePath, history::traceLines(record, m_description))) {
        *error = tr("Cannot write %1").arg(tracePath);
        return false;
    }
    return true;
}

void HistoryPanel::chooseExport()
{
    const QList<HistoryRecord> selected = selectedRecords(false);
    if (selected.size() != 1)
        return;
    const QString path
        = QFileDialog::getSaveFileName(this,
                                       tr("Export %1").arg(selected.first().name()),
                                       selected.first().name() + QStringLiteral(".csv"),
                                       tr("CSV files (*.csv)"));
    if (path.isEmpty())
        return;
    const QFileInfo file(path);
    const QString trace
        = file.dir().filePath(file.completeBaseName() + QStringLiteral("-trace.csv"));
    QString error;
    m_note->setText(exportSelected(path, trace, &error)
                        ? (selected.first().kind == HistoryRecord::Kind::Run
                               ? tr("Wrote %1 and %2").arg(path, trace)
                               : tr("Wrote %1").arg(path))
                        : error);
}

} // namespace tarn::host
