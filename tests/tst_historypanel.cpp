// Tests of the window's history: what the window uploads and runs is recorded, found by the
// panel's filters, opened into the editor as one change to undo, plotted and exported.
#include <QAbstractItemModelTester>

#include <dialogprogrammer.h>
#include <window/historydock.h>
#include <window/historymodel.h>
#include <window/historypanel.h>
#include <window/mainwindow.h>
#include <window/runview.h>
#include <window/sequenceeditor.h>
#include <window/sequencefiles.h>
#include <window/sequencehistory.h>

#include <qcustomplot.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

using namespace tarn::host;
using namespace tarn2::specific::orvo5000::programmer;

class tst_HistoryPanel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void windowRecordsWhatItUploadsAndRuns();
    void filtersNarrowTheList();
    void openingIsOneChangeToUndo();
    void plotsOneRunOnItsPlanAndTwoOnEachOther();
    void exportsSequenceAndTrace();
    void cleanupTestCase();

private:
    QStringList shown(int column) const;
    void runOnce();

    QTemporaryDir m_dir;
    std::unique_ptr<MainWindow> m_window;
    HistoryPanel *m_panel = nullptr;
};

void tst_HistoryPanel::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    QVERIFY(m_dir.isValid());
    qputenv("XDG_CONFIG_HOME", m_dir.filePath(QStringLiteral("config")).toUtf8());
    qputenv("XDG_DATA_HOME", m_dir.filePath(QStringLiteral("data")).toUtf8());
    QCoreApplication::setOrganizationName(QStringLiteral("TarnTest"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_historypanel"));
    m_window
        = std::make_unique<MainWindow>(tarn::sim::InstrumentDescription::builtIn(), CommandSet());
    m_window->openHistory(m_dir.filePath(QStringLiteral("history.sqlite")));
    QVERIFY(m_window->historyDock()->isRecording());
    m_panel = m_window->historyDock()->panel();
    new QAbstractItemModelTester(
        m_panel->model(), QAbstractItemModelTester::FailureReportingMode::QtTest, m_panel);
    QSignalSpy states(m_window->controller(), &BenchController::stateChanged);
    m_window->connectTo(QStringLiteral("sim:?speed=20"));
    QTRY_COMPARE_WITH_TIMEOUT(
        m_window->controller()->state(), BenchController::State::Connected, 10000);
    m_window->controller()->runSession()->setPollInterval(20);
}

void tst_HistoryPanel::cleanupTestCase()
{
    m_window.reset();
}

QStringList tst_HistoryPanel::shown(int column) const
{
    QStringList texts;
    for (int row = 0; row < m_panel->model()->rowCount(); ++row)
        texts << m_panel->model()->index(row, column).data().toString();
    return texts;
}

void tst_HistoryPanel::runOnce()
{
    RunSession *run = m_window->controller()->runSession();
    QSignalSpy ended(run, &RunSession::ended);
    QVERIFY(ended.isValid());
    run->start(1, true);
    QTRY_VERIFY_WITH_TIMEOUT(run->trace().samples().size() >= 5, 10000);
    run->stop();
    QVERIFY(ended.wait(10000));
    QCOMPARE(ended.first().at(1).toBool(), false);
}

void tst_HistoryPanel::windowRecordsWhatItUploadsAndRuns()
{
    m_window->dialog()->findChild<QPushButton *>(QStringLiteral("btnListTemplateAppend"))->click();
    QSignalSpy uploaded(m_window->controller(), &BenchController::uploadEnded);
    m_window->dialog()->uploaderStart(UploadMode::List);
    QVERIFY(uploaded.wait(15000));
    runOnce();
    QCOMPARE(shown(HistoryModel::Record), (QStringList{"R2", "U1"}));
    QCOMPARE(shown(HistoryModel::Outcome), (QStringList{"ended", "verified"}));
    QCOMPARE(shown(HistoryModel::Kind), (QStringList{"Run", "Upload"}));
    QCOMPARE(shown(HistoryModel::Channel), (QStringList{"CH1 List", "CH1 List"}));
    const int steps = m_window->sequenceFiles()->current(UploadMode::List).size();
    QCOMPARE(m_panel->model()->index(1, HistoryModel::Steps).data().toInt(), steps);
    QCOMPARE(m_panel->model()->record(0).sampleCount,
             m_window->controller()->runSession()->trace().samples().size());
}

void tst_HistoryPanel::filtersNarrowTheList()
{
    auto *text = m_panel->findChild<QLineEdit *>(QStringLiteral("historyText"));
    auto *outcome = m_panel->findChild<QComboBox *>(QStringLiteral("historyOutcome"));
    QTest::keyClicks(text, QStringLiteral("stopped"));
    QCOMPARE(shown(HistoryModel::Record), QStringList{"R2"});
    text->clear();
    outcome->setCurrentIndex(outcome->findData(QStringLiteral("verified")));
    QCOMPARE(shown(HistoryModel::Record), QStringList{"U1"});
    outcome->setCurrentIndex(outcome->findData(QStringLiteral("failed")));
    QCOMPARE(shown(HistoryModel::Record), QStringList());
    outcome->setCurrentIndex(0);
    QCOMPARE(shown(HistoryModel::Record), (QStringList{"R2", "U1"}));
}

void tst_HistoryPanel::openingIsOneChangeToUndo()
{
    SequenceFiles *files = m_window->sequenceFiles();
    const SequenceContent recorded = files->current(UploadMode::List);
    SequenceContent other;
    other.list = {ListData(2.0, 1.0, 0.5)};
    files->replace(other);
    m_window->sequenceEditor()->history(UploadMode::List)->flush();

    m_panel->select({QStringLiteral("U1")});
    m_panel->findChild<QPushButton *>(QStringLiteral("historyOpen"))->click();
    QVERIFY(files->current(UploadMode::List).sameAs(recorded));
    m_window->sequenceEditor()->undoAction()->trigger();
    QVERIFY(files->current(UploadMode::List).sameAs(other));
    m_window->sequenceEditor()->redoAction()->trigger();
    QVERIFY(files->current(UploadMode::List).sameAs(recorded));
}

void tst_HistoryPanel::plotsOneRunOnItsPlanAndTwoOnEachOther()
{
    QCustomPlot *plot = m_window->runView()->plot();
    auto *button = m_panel->findChild<QPushButton *>(QStringLiteral("historyPlot"));
    m_panel->select({QStringLiteral("U1")});
    QVERIFY(!button->isEnabled());
    m_panel->select({QStringLiteral("R2")});
    button->click();
    QCOMPARE(plot->graphCount(), 4);
    QCOMPARE(plot->graph(0)->name(), QStringLiteral("Plan of R2"));
    QCOMPARE(plot->graph(2)->name(), QStringLiteral("Voltage of R2"));
    QCOMPARE(plot->graph(2)->dataCount(), m_panel->model()->record(0).sampleCount);

    runOnce();
    QCOMPARE(shown(HistoryModel::Record).first(), QStringLiteral("R3"));
    m_panel->select({QStringLiteral("R2"), QStringLiteral("R3")});
    button->click();
    QStringList names;
    for (int i = 0; i < plot->graphCount(); ++i)
        names << plot->graph(i)->name();
    QCOMPARE(names,
             (QStringList{"Plan of R2",
                          "Planned current of R2",
                          "Voltage of R2",
                          "Current of R2",
                          "Voltage of R3",
                          "Current of R3"}));
}

void tst_HistoryPanel::exportsSequenceAndTrace()
{
    m_panel->select({QStringLiteral("R2")});
    const QString sequence = m_dir.filePath(QStringLiteral("R2.csv"));
    const QString trace = m_dir.filePath(QStringLiteral("R2-trace.csv"));
    QString error;
    QVERIFY2(m_panel->exportSelected(sequence, trace, &error), qPrintable(error));
    QFile written(trace);
    QVERIFY(written.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = written.readAll().trimmed().split('\n');
    QCOMPARE(lines.first(), QByteArray("time,voltage,current,output,step_no,cycle"));
    QCOMPARE(lines.size(), m_panel->model()->record(1).sampleCount + 1);
    QFile file(sequence);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readLine(), QByteArray("LIST,10\n"));
}

QTEST_MAIN(tst_HistoryPanel)
#include "tst_historypanel.moc"
