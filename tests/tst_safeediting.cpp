// Tests of the bench host's safe editing: loads that keep the sequence, saves that warn, Escape and
// closing, sequences kept between runs, undo and redo and rows pasted from a spreadsheet, all on
// the real window with a scripted prompter.
#include "commandset.h"
#include "prompter.h"
#include <dialogprogrammer.h>
#include <window/benchcontroller.h>
#include <window/mainwindow.h>
#include <window/runview.h>
#include <window/sequenceeditor.h>
#include <window/sequencefiles.h>
#include <window/sequencehistory.h>

#include "scriptedprompter.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QtTest>

#include <memory>

using namespace tarn::host;
using tarn::host::test::ScriptedPrompter;
using namespace tarn2::specific::orvo5000::programmer;

namespace {

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

class TestSafeEditing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void cancelledLoadKeepsSequence();
    void refusedFileKeepsSequenceAndSaysWhy_data();
    void refusedFileKeepsSequenceAndSaysWhy();
    void listEndingInOutputOnCanBeLoadedWithOutputOff_data();
    void listEndingInOutputOnCanBeLoadedWithOutputOff();
    void fileNamedOnTheCommandLineOpensInItsTab();
    void saveThatWouldNotLoadBackAsksFirst_data();
    void saveThatWouldNotLoadBackAsksFirst();
    void saveAddsExtensionAndRemembersFolder();
    void tabKeepsItsOwnMessage();
    void writeErrorNamesPathAndReason();
    void escapeNeverClosesTheDialog_data();
    void escapeNeverClosesTheDialog();
    void closeAsksOnlyWhenChanged();
    void sequencesComeBackAfterRestartUnlessDiscarded();
    void undoRedoRoundTripsEveryKindOfChange();
    void clearOfManyRowsAsks();
    void pasteInsertsRowsAndRefusesBadValues();
    void copyPutsRowsOnTheClipboard();
    void durationShowsRepeatsAndEndless();
    void minimumSizeKeepsEverythingVisible();
    void layoutComesBackAtTheNextStart();
    void runViewLeavesTheTablesTheirRows_data();
    void runViewLeavesTheTablesTheirRows();
    void valueBeyondTheRangeIsRefusedWithTheLimit_data();
    void valueBeyondTheRangeIsRefusedWithTheLimit();
    void shortWindowScrollsTheDialogRatherThanSqueezingIt();
    void dialogDrawsOnlyAtAPaceDuringAnUpload();

private:
    void append(UploadMode mode);
    QList<double> voltages() const;
    void makeWindow();

    QTemporaryDir m_dir;
    QTemporaryDir m_config;
    ScriptedPrompter m_prompter;
    std::unique_ptr<MainWindow> m_window;
    DialogProgrammer *m_dialog = nullptr;
};

void TestSafeEditing::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    qputenv("XDG_CONFIG_HOME", m_config.path().toLocal8Bit());
    QCoreApplication::setOrganizationName(QStringLiteral("TarnTest"));
    QCoreApplication::setApplicationName(QStringLiteral("SafeEditing"));
}

void TestSafeEditing::makeWindow()
{
    m_window
        = std::make_unique<MainWindow>(tarn::sim::InstrumentDescription::builtIn(), CommandSet());
    m_window->setPrompter(&m_prompter);
    m_dialog = m_window->dialog();
}

void TestSafeEditing::init()
{
    QSettings().clear();
    m_prompter = ScriptedPrompter();
    makeWindow();
}

void TestSafeEditing::cleanup()
{
    m_window.reset();
}

void TestSafeEditing::append(UploadMode mode)
{
    m_dialog
        ->findChild<QPushButton *>(mode == UploadMode::List
                                       ? QStringLiteral("btnListTemplateAppend")
                                       : QStringLiteral("btnDelayerTemplateAppend"))
        ->click();
    m_window->sequenceEditor()->history(mode)->flush();
}

QList<double> TestSafeEditing::voltages() const
{
    QList<double> values;
    for (const ListData &step : m_dialog->listSequence())
        values << step.voltage;
    return values;
}

void TestSafeEditing::cancelledLoadKeepsSequence()
{
    append(UploadMode::List);
    m_dialog->findChild<QSpinBox *>(QStringLiteral("sbListCycles"))->setValue(3);
    const int steps = m_dialog->listSequence().size();
    QVERIFY(steps > 0);

    m_dialog->findChild<QAction *>(QStringLiteral("actionloadList"))->trigger();

    QCOMPARE(m_dialog->listSequence().size(), steps);
    QCOMPARE(m_dialog->findChild<QSpinBox *>(QStringLiteral("sbListCycles"))->value(), 3);
    QVERIFY(m_prompter.warned.isEmpty());
}

void TestSafeEditing::refusedFileKeepsSequenceAndSaysWhy_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("junk") << QByteArray("junk\n")
                          << QStringLiteral("line 1: \"junk\" is not the head of a List file "
                                            "(LIST,10)");
    // Whatever a UTF-16 head reads as, it is not the head of a List file.
    QTest::newRow("UTF-16") << QByteArray("\xff\xfeL\0I\0S\0T\0,\0\x31\0\x30\0\n\0", 18)
                            << QStringLiteral("line 1: ");
}

void TestSafeEditing::refusedFileKeepsSequenceAndSaysWhy()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    append(UploadMode::List);
    const QList<double> before = voltages();
    const QString path = m_dir.filePath(QStringLiteral("refused.csv"));
    writeFile(path, content);
    m_prompter.paths << path;

    m_dialog->findChild<QAction *>(QStringLiteral("actionloadList"))->trigger();

    QCOMPARE(voltages(), before);
    QCOMPARE(m_prompter.warned.size(), 1);
    QVERIFY2(
        m_prompter.warned.first().startsWith(path + QStringLiteral(" was not loaded: ") + reason),
        qPrintable(m_prompter.warned.first()));
}

void TestSafeEditing::listEndingInOutputOnCanBeLoadedWithOutputOff_data()
{
    QTest::addColumn<bool>("accept");
    QTest::newRow("load with Output Off") << true;
    QTest::newRow("keep the sequence") << false;
}

void TestSafeEditing::listEndingInOutputOnCanBeLoadedWithOutputOff()
{
    QFETCH(bool, accept);
    append(UploadMode::List);
    const QList<double> before = voltages();
    const int cyclesBefore = m_dialog->getUploadParamFromUI(UploadMode::List).cycles;
    const QString path = m_dir.filePath(QStringLiteral("on.csv"));
    writeFile(path,
              "LIST,10\nCycles,4\nEnd Status,Output On\nGroups,2\nNo.,Voltage(V),Current(A),"
              "Time(s)\n0,1.000,0.500,1.000\n1,2.000,0.500,1.000\n");
    m_prompter.paths << path;
    m_prompter.answers << (accept ? Prompter::Answer::Yes : Prompter::Answer::No);

    m_dialog->findChild<QAction *>(QStringLiteral("actionloadList"))->trigger();

    QCOMPARE(m_prompter.asked.size(), 1);
    QVERIFY(m_prompter.asked.first().contains(
        QStringLiteral("line 3: a List file cannot end in Output On")));
    const UploadParam param = m_dialog->getUploadParamFromUI(UploadMode::List);
    if (accept) {
        QCOMPARE(voltages(), (QList<double>{1.0, 2.0}));
        QCOMPARE(param.cycles, 4);
        QCOMPARE(param.endState, QStringLiteral("OFF"));
    } else {
        QCOMPARE(voltages(), before);
        QCOMPARE(param.cycles, cyclesBefore);
    }
}

void TestSafeEditing::fileNamedOnTheCommandLineOpensInItsTab()
{
    const QString path = m_dir.filePath(QStringLiteral("delayer.csv"));
    writeFile(path,
              "DELAYER,10\nCycles,2\nEnd Status,Last\nGroups,2\nNo.,State,Time(s)\n0,On,1.5\n"
              "1,Off,0.5\n");
    QVERIFY(m_window->openSequenceFile(path));
    QCOMPARE(m_dialog->findChild<QTabWidget *>(QStringLiteral("tabWidget"))->currentIndex(), 1);
    QCOMPARE(m_dialog->delayerSequence().size(), 2);
    QCOMPARE(m_dialog->delayerSequence().at(1).state, false);
    QCOMPARE(m_dialog->getUploadParamFromUI(UploadMode::Delayer).endState, QStringLiteral("LAST"));
    QVERIFY(!m_window->sequenceEditor()->history(UploadMode::Delayer)->isModified());

    const int before = m_dialog->delayerSequence().size();
    QVERIFY(!m_window->openSequenceFile(m_dir.filePath(QStringLiteral("missing.csv"))));
    QCOMPARE(m_dialog->delayerSequence().size(), before);
}

void TestSafeEditing::saveThatWouldNotLoadBackAsksFirst_data()
{
    QTest::addColumn<bool>("endsOn");
    QTest::addColumn<int>("appends");
    QTest::addColumn<QString>("problem");
    QTest::newRow("ends in Output On")
        << true << 1
        << QStringLiteral("It ends in Output On, and a List file with that end state is refused.");
    QTest::newRow("longer than the instrument holds")
        << false << 70 << QStringLiteral("It has 2100 steps, more than this instrument's 2048.");
}

void TestSafeEditing::saveThatWouldNotLoadBackAsksFirst()
{
    QFETCH(bool, endsOn);
    QFETCH(int, appends);
    QFETCH(QString, problem);
    for (int i = 0; i < appends; ++i)
        append(UploadMode::List);
    if (endsOn)
        m_dialog->findChild<QComboBox *>(QStringLiteral("cbbListEndState"))->setCurrentIndex(1);
    const QString declined = m_dir.filePath(QStringLiteral("declined.csv"));
    const QString accepted = m_dir.filePath(QStringLiteral("accepted.csv"));

    m_prompter.answers << Prompter::Answer::No;
    m_prompter.paths << declined;
    QVERIFY(!m_window->sequenceFiles()->save(UploadMode::List));
    QVERIFY(!QFile::exists(declined));
    QCOMPARE(m_prompter.asked.size(), 1);
    QVERIFY2(m_prompter.asked.first().contains(problem), qPrintable(m_prompter.asked.first()));

    m_prompter.paths = QStringList{accepted};
    m_prompter.answers << Prompter::Answer::Yes;
    QVERIFY(m_window->sequenceFiles()->save(UploadMode::List));
    QVERIFY(QFile::exists(accepted));
}

// The title names the tab's file and marks changes not saved in it.
void TestSafeEditing::saveAddsExtensionAndRemembersFolder()
{
    append(UploadMode::List);
    QVERIFY(m_window->isWindowModified());
    m_prompter.paths << m_dir.filePath(QStringLiteral("plain"));
    QVERIFY(m_window->sequenceFiles()->save(UploadMode::List));
    QVERIFY(QFile::exists(m_dir.filePath(QStringLiteral("plain.csv"))));
    QCOMPARE(SequenceFiles::lastFolder(), QDir(m_dir.path()).absolutePath());
    QVERIFY(!m_window->sequenceEditor()->history(UploadMode::List)->isModified());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("plain.csv[*] — Bench Sequence Programmer"));
    QVERIFY(!m_window->isWindowModified());
    m_dialog->setCurrentMode(UploadMode::Delayer);
    QCOMPARE(m_window->windowTitle(),
             QStringLiteral("Untitled Delayer[*] — Bench Sequence Programmer"));
}

// A message about the List stays with the List: the Delayer tab does not show it, and it is there
// again on the way back.
void TestSafeEditing::tabKeepsItsOwnMessage()
{
    append(UploadMode::List);
    m_prompter.paths << m_dir.filePath(QStringLiteral("kept.csv"));
    QVERIFY(m_window->sequenceFiles()->save(UploadMode::List));
    const QString saved = m_dialog->statusMessage();
    QVERIFY(saved.startsWith(QStringLiteral("Saved 30 steps to ")));
    m_dialog->setCurrentMode(UploadMode::Delayer);
    QCOMPARE(m_dialog->statusMessage(), QString());
    m_dialog->setCurrentMode(UploadMode::List);
    QCOMPARE(m_dialog->statusMessage(), saved);
}

void TestSafeEditing::writeErrorNamesPathAndReason()
{
    append(UploadMode::List);
    const QString path = m_dir.filePath(QStringLiteral("no/such/folder/list.csv"));
    m_prompter.paths << path;
    QVERIFY(!m_window->sequenceFiles()->save(UploadMode::List));
    QCOMPARE(m_prompter.warned,
             QStringList{QStringLiteral("Could not write %1: the folder %2 does not exist")
                             .arg(path, m_dir.filePath(QStringLiteral("no/such/folder")))});
}

void TestSafeEditing::escapeNeverClosesTheDialog_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("sequence table") << QStringLiteral("tvList");
    QTest::newRow("repeat count") << QStringLiteral("sbListCycles");
    QTest::newRow("end state") << QStringLiteral("cbbListEndState");
    QTest::newRow("delayer table") << QStringLiteral("tvDelayer");
}

void TestSafeEditing::escapeNeverClosesTheDialog()
{
    QFETCH(QString, target);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QWidget *widget = m_dialog->findChild<QWidget *>(target);
    QVERIFY(widget);
    QTest::keyClick(widget, Qt::Key_Escape);
    QTest::keyClick(m_dialog, Qt::Key_Escape);
    QCoreApplication::processEvents();
    QVERIFY(m_dialog->isVisible());
    QVERIFY(m_window->isVisible());
    QCOMPARE(m_dialog->result(), 0);
}

void TestSafeEditing::closeAsksOnlyWhenChanged()
{
    m_window->show();
    QVERIFY(m_window->close());
    QVERIFY(m_prompter.asked.isEmpty());

    m_window->show();
    append(UploadMode::List);
    m_prompter.answers << Prompter::Answer::Cancel;
    QVERIFY(!m_window->close());
    QVERIFY(m_window->isVisible());
    QCOMPARE(m_prompter.asked,
             QStringList{QStringLiteral("The List sequence has changed since it was last saved or "
                                        "loaded. Save it before closing?")});

    m_prompter.answers << Prompter::Answer::Save;
    m_prompter.paths << m_dir.filePath(QStringLiteral("closing.csv"));
    QVERIFY(m_window->close());
    QVERIFY(QFile::exists(m_dir.filePath(QStringLiteral("closing.csv"))));
}

void TestSafeEditing::sequencesComeBackAfterRestartUnlessDiscarded()
{
    append(UploadMode::List);
    append(UploadMode::Delayer);
    m_dialog->findChild<QSpinBox *>(QStringLiteral("sbListCycles"))->setValue(0);
    m_dialog->findChild<QComboBox *>(QStringLiteral("cbbDelayerEndState"))->setCurrentIndex(2);
    m_window->sequenceFiles()->replace([&] {
        SequenceContent c = m_window->sequenceFiles()->current(UploadMode::List);
        c.list.first().voltage = 1.2345678;
        return c;
    }());
    const QList<double> list = voltages();
    const int delayer = m_dialog->delayerSequence().size();
    m_prompter.answers << Prompter::Answer::Save;
    m_prompter.paths << m_dir.filePath(QStringLiteral("a.csv"))
                     << m_dir.filePath(QStringLiteral("b.csv"));
    m_window->show();
    QVERIFY(m_window->close());

    makeWindow();
    QCOMPARE(voltages(), list);
    QCOMPARE(m_dialog->delayerSequence().size(), delayer);
    QCOMPARE(m_dialog->getUploadParamFromUI(UploadMode::List).cycles, 0);
    QCOMPARE(m_dialog->getUploadParamFromUI(UploadMode::Delayer).endState, QStringLiteral("LAST"));
    QVERIFY(!m_window->sequenceEditor()->history(UploadMode::List)->isModified());

    append(UploadMode::List);
    m_prompter.answers << Prompter::Answer::Discard;
    m_window->show();
    QVERIFY(m_window->close());
    makeWindow();
    QVERIFY(m_dialog->listSequence().isEmpty());
    QVERIFY(m_dialog->delayerSequence().isEmpty());
}

void TestSafeEditing::undoRedoRoundTripsEveryKindOfChange()
{
    SequenceHistory *history = m_window->sequenceEditor()->history(UploadMode::List);
    auto *view = m_dialog->findChild<QTableView *>(QStringLiteral("tvList"));
    QAbstractItemModel *model = view->model();
    QList<QList<double>> states{voltages()};
    auto record = [&] {
        history->flush();
        states << voltages();
    };

    m_prompter.paths << m_dir.filePath(QStringLiteral("loaded.csv"));
    writeFile(m_prompter.paths.first(),
              "LIST,10\nCycles,1\nEnd Status,Output Off\nGroups,2\nNo.\n0,4,1,1\n1,5,1,1\n");
    m_dialog->findChild<QAction *>(QStringLiteral("actionloadList"))->trigger(); // load
    record();
    model->insertRows(model->rowCount(), 1); // context-menu Append
    record();
    model->insertRows(0, 1); // context-menu Insert
    record();
    model->setData(model->index(1, 1), 7.5); // cell edit
    record();
    view->selectionModel()->select(model->index(2, 1), QItemSelectionModel::Select);
    view->selectionModel()->select(model->index(3, 1), QItemSelectionModel::Select);
    model->removeRows(3, 1); // context-menu Delete, one row at a time in one turn
    model->removeRows(2, 1);
    record();
    model->removeRows(0, model->rowCount()); // Clear of a few rows asks nothing
    record();
    QVERIFY(m_prompter.asked.isEmpty());
    QCOMPARE(
        states,
        (QList<QList<double>>{{}, {4, 5}, {4, 5, 0}, {0, 4, 5, 0}, {0, 7.5, 5, 0}, {0, 7.5}, {}}));
    QCOMPARE(history->stack()->count(), 6);

    for (int i = states.size() - 2; i >= 0; --i) {
        m_window->sequenceEditor()->undoAction()->trigger();
        QCOMPARE(voltages(), states.at(i));
    }
    QVERIFY(!m_window->sequenceEditor()->undoAction()->isEnabled());
    for (int i = 1; i < states.size(); ++i) {
        m_window->sequenceEditor()->redoAction()->trigger();
        QCOMPARE(voltages(), states.at(i));
    }
    QCOMPARE(m_window->sequenceEditor()->undoAction()->shortcut(),
             QKeySequence(Qt::CTRL | Qt::Key_Z));
    QCOMPARE(m_window->sequenceEditor()->redoAction()->shortcut(),
             QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
}

void TestSafeEditing::clearOfManyRowsAsks()
{
    append(UploadMode::List);
    const QList<double> before = voltages();
    QVERIFY(before.size() > SequenceHistory::quietClear);
    QAbstractItemModel *model
        = m_dialog->findChild<QTableView *>(QStringLiteral("tvList"))->model();

    m_prompter.answers << Prompter::Answer::No;
    model->removeRows(0, model->rowCount());
    m_window->sequenceEditor()->history(UploadMode::List)->flush();
    QCOMPARE(voltages(), before);
    QCOMPARE(
        m_prompter.asked,
        QStringList{QStringLiteral("Erase all %1 steps of the List sequence?").arg(before.size())});

    m_prompter.answers << Prompter::Answer::Yes;
    model->removeRows(0, model->rowCount());
    m_window->sequenceEditor()->history(UploadMode::List)->flush();
    QVERIFY(m_dialog->listSequence().isEmpty());
}

void TestSafeEditing::pasteInsertsRowsAndRefusesBadValues()
{
    QApplication::clipboard()->setText(QStringLiteral("1,5\t0,5\t1\n2\t1\t0,25\n"));
    m_window->sequenceEditor()->pasteRows();
    QCOMPARE(voltages(), (QList<double>{1.5, 2.0}));
    QCOMPARE(m_dialog->listSequence().at(1).time, 0.25);

    QApplication::clipboard()->setText(QStringLiteral("3\t1\t1\n99\t1\t1\n4\t1\t1\n"));
    m_window->sequenceEditor()->pasteRows();
    QCOMPARE(voltages(), (QList<double>{1.5, 2.0}));
    QCOMPARE(m_dialog->findChild<QStatusBar *>()->currentMessage(),
             QStringLiteral("Not pasted: line 2: voltage 99 V is above CH1's 32 V"));

    m_window->sequenceEditor()->undoAction()->trigger();
    QVERIFY(m_dialog->listSequence().isEmpty());
}

void TestSafeEditing::copyPutsRowsOnTheClipboard()
{
    QApplication::clipboard()->setText(QStringLiteral("1.5\t0.5\t1\n2\t1\t0.25\n3\t1\t1\n"));
    m_window->sequenceEditor()->pasteRows();
    auto *view = m_dialog->findChild<QTableView *>(QStringLiteral("tvList"));
    view->selectionModel()->clearSelection();
    view->selectionModel()->select(view->model()->index(2, 2), QItemSelectionModel::Select);
    view->selectionModel()->select(view->model()->index(0, 1), QItemSelectionModel::Select);
    m_window->sequenceEditor()->copyRows();
    QCOMPARE(QApplication::clipboard()->text(),
             QStringLiteral("1.500\t0.500\t1.000\n3.000\t1.000\t1.000\n"));

    m_window->sequenceEditor()->deleteSelectedRows();
    QCOMPARE(voltages(), (QList<double>{2.0}));
}

void TestSafeEditing::durationShowsRepeatsAndEndless()
{
    QApplication::clipboard()->setText(QStringLiteral("1\t1\t1.5\n1\t1\t0.25\n"));
    m_window->sequenceEditor()->pasteRows();
    auto *cycles = m_dialog->findChild<QSpinBox *>(QStringLiteral("sbListCycles"));
    auto *label = m_dialog->findChild<QLabel *>(QStringLiteral("listDuration"));
    QVERIFY(label);
    cycles->setValue(1);
    m_window->sequenceEditor()->history(UploadMode::List)->flush();
    QCOMPARE(label->text(), QStringLiteral("Total 1.750 s"));
    cycles->setValue(3);
    m_window->sequenceEditor()->history(UploadMode::List)->flush();
    QCOMPARE(label->text(), QStringLiteral("Total 1.750 s × 3 = 5.250 s"));
    cycles->setValue(0);
    m_window->sequenceEditor()->history(UploadMode::List)->flush();
    QCOMPARE(label->text(), QStringLiteral("Total 1.750 s, repeated endlessly"));
    QCOMPARE(m_dialog->findChild<QSpinBox *>(QStringLiteral("sbListGroups"))->toolTip(),
             QStringLiteral("Steps in the sequence; red above the 2048 this instrument holds"));
}

void TestSafeEditing::minimumSizeKeepsEverythingVisible()
{
    m_window->resize(100, 100);
    QVERIFY(m_window->minimumWidth() >= m_dialog->minimumSizeHint().width());
    QVERIFY(m_window->width() >= m_window->minimumSizeHint().width());
    QVERIFY(m_window->height() >= m_window->minimumSizeHint().height());
}

void TestSafeEditing::layoutComesBackAtTheNextStart()
{
    m_window->show();
    m_window->showRunView();
    QVERIFY(m_window->close());
    makeWindow();
    m_window->show();
    QVERIFY(m_window->runView()->isVisibleTo(m_window.get()));
}

void TestSafeEditing::runViewLeavesTheTablesTheirRows_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("List") << int(UploadMode::List);
    QTest::newRow("Delayer") << int(UploadMode::Delayer);
}

// At 1280×800 with the run view open, ten steps and every button of the tab are in sight, none of
// them scrolled away.
void TestSafeEditing::runViewLeavesTheTablesTheirRows()
{
    const auto mode
        = static_cast<UploadMode>(QTest::currentDataTag() == QByteArray("List") ? 0 : 1);
    for (int i = 0; i < 3; ++i)
        append(mode);
    m_dialog->setCurrentMode(mode);
    m_window->resize(1280, 800);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_window->showRunView();
    QTest::qWait(50);
    QVERIFY(m_window->runView()->isVisible());

    auto *scroll = m_window->findChild<QScrollArea *>(QStringLiteral("dialogScrollArea"));
    const QRect sight = scroll->viewport()->rect();
    const auto inSight = [&](const QWidget *widget, QRect rect) {
        return widget->isVisible()
               && sight.contains(
                   QRect(widget->mapTo(scroll->viewport(), rect.topLeft()), rect.size()));
    };
    QTableView *table = m_dialog->sequenceView(mode);
    int rows = 0;
    for (int row = 0; row < table->model()->rowCount(); ++row) {
        const QRect cell = table->visualRect(table->model()->index(row, 0));
        rows += table->viewport()->rect().contains(cell) && inSight(table->viewport(), cell);
    }
    QVERIFY2(rows >= 10, qPrintable(QString::number(rows)));
    auto *tabs
        = qobject_cast<QTabWidget *>(m_dialog->control(mode, DialogProgrammer::Control::Tabs));
    for (QPushButton *button : tabs->currentWidget()->findChildren<QPushButton *>())
        QVERIFY2(inSight(button, button->rect()), qPrintable(button->text()));
}

void TestSafeEditing::valueBeyondTheRangeIsRefusedWithTheLimit_data()
{
    QTest::addColumn<bool>("inTable");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("kept");
    QTest::addColumn<QString>("message");

    QTest::newRow("cell above the channel's voltage")
        << true << "40" << 1.5 << "40 V is above the largest value, 32.000 V";
    QTest::newRow("template maximum above the channel's voltage")
        << false << "40" << 3.0 << "40 V is above the largest value, 32.000 V";
    QTest::newRow("template maximum within") << false << "25" << 25.0 << "";
}

// 40 typed where 32 V is the limit never becomes 4: the field keeps what it held and says why.
void TestSafeEditing::valueBeyondTheRangeIsRefusedWithTheLimit()
{
    QFETCH(bool, inTable);
    QFETCH(QString, typed);
    QFETCH(double, kept);
    QFETCH(QString, message);
    append(UploadMode::List);
    m_window->show();
    QDoubleSpinBox *box = nullptr;
    if (inTable) {
        QTableView *table = m_dialog->sequenceView(UploadMode::List);
        table->edit(table->model()->index(0, 1));
        box = table->viewport()->findChild<QDoubleSpinBox *>();
    } else {
        box = m_dialog->findChild<QDoubleSpinBox *>(QStringLiteral("sbListTempMax"));
    }
    QVERIFY(box);
    box->selectAll();
    QTest::keyClicks(box, typed);
    QCOMPARE(box->value(), kept);
    QCOMPARE(m_dialog->statusMessage(), message);
}

// With the run view open on a short screen, the editors keep their height and the dialog scrolls.
void TestSafeEditing::shortWindowScrollsTheDialogRatherThanSqueezingIt()
{
    m_window->resize(1280, 600);
    m_window->show();
    m_window->showRunView();
    QTRY_VERIFY(m_dialog->isVisible());
    auto *editors = m_dialog->findChild<QWidget *>(QStringLiteral("groupBox"));
    QVERIFY(editors);
    QTRY_VERIFY(m_dialog->height() >= m_dialog->minimumHeight());
    QVERIFY(editors->height() >= editors->minimumSizeHint().height());
    auto *scroll = m_window->findChild<QScrollArea *>(QStringLiteral("dialogScrollArea"));
    QVERIFY(scroll);
    QVERIFY(scroll->verticalScrollBar()->isVisible());
}

// While an upload runs the window holds the dialog's drawing back; after it, and after one that
// failed, the dialog draws again.
void TestSafeEditing::dialogDrawsOnlyAtAPaceDuringAnUpload()
{
    m_window->show();
    BenchController *controller = m_window->controller();
    m_window->connectTo(QStringLiteral("sim:"));
    QTRY_COMPARE(controller->state(), InstrumentConnection::State::Connected);
    append(UploadMode::List);
    QSignalSpy ended(controller, &BenchController::uploadEnded);
    QList<bool> drawing;
    QObject watching;
    connect(controller, &BenchController::uploadProgress, &watching, [&] {
        drawing << m_dialog->updatesEnabled();
    });
    m_dialog->uploaderStart(UploadMode::List);
    QVERIFY(ended.wait(5000));
    QTRY_VERIFY(!controller->isUploading());
    QVERIFY(!drawing.isEmpty());
    QVERIFY(!drawing.contains(true));
    QVERIFY(m_dialog->updatesEnabled());

    m_window->controller()->disconnectFromInstrument();
    m_dialog->uploaderStart(UploadMode::List);
    QTRY_VERIFY(!controller->isUploading());
    QVERIFY(m_dialog->updatesEnabled());
}

QTEST_MAIN(TestSafeEditing)
#include "tst_safeediting.moc"
