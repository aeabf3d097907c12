// Tests of the bench host's languages: the catalogues change what the window shows, and never what
// a sequence file holds or how it loads.
#include "commandset.h"
#include "instrumentoption.h"
#include <dialogprogrammer.h>
#include <instrumentdescription.h>
#include <languages.h>
#include <window/mainwindow.h>
#include <window/sequenceeditor.h>
#include <window/sequencefiles.h>

#include "scriptedprompter.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <memory>

using namespace tarn::host;
using tarn::host::test::ScriptedPrompter;
using namespace tarn2::specific::orvo5000::programmer;

namespace {

// The translators of one language, taken out again when it goes out of scope.
class Language
{
public:
    explicit Language(const QString &name)
        : m_translators(installTranslators(QLocale(name)))
    {}
    ~Language() { qDeleteAll(m_translators); }
    int count() const { return m_translators.size(); }

private:
    Q_DISABLE_COPY(Language)
    QList<QTranslator *> m_translators;
};

// A dialog with the host's file handlers on it, as the bench host's window holds it, and a prompter
// that names the files to save and load.
struct FileBench
{
    FileBench()
        : description(tarn::sim::InstrumentDescription::builtIn())
        , dialog(std::make_unique<DialogProgrammer>(optionFor(description), nullptr))
    {
        auto *files = new SequenceFiles(dialog.get(), description);
        files->setPrompter(&prompter);
    }

    template<class T> T *child(const QString &name) const { return dialog->findChild<T *>(name); }

    tarn::sim::InstrumentDescription description;
    ScriptedPrompter prompter;
    std::unique_ptr<DialogProgrammer> dialog;
};

struct TabNames
{
    QString append;
    QString save;
    QString load;
    QString cycles;
    QString endState;
    QString table;
};

TabNames namesOf(UploadMode mode)
{
    if (mode == UploadMode::List)
        return {QStringLiteral("btnListTemplateAppend"),
                QStringLiteral("actionSaveList"),
                QStringLiteral("actionloadList"),
                QStringLiteral("sbListCycles"),
                QStringLiteral("cbbListEndState"),
                QStringLiteral("tvList")};
    return {QStringLiteral("btnDelayerTemplateAppend"),
            QStringLiteral("actionSaveDelayer"),
            QStringLiteral("actionLoadDelayer"),
            QStringLiteral("sbDelayerCycles"),
            QStringLiteral("cbbDelayerEndState"),
            QStringLiteral("tvDelayer")};
}

// Every cell of a table as shown, row by row.
QStringList cells(const QTableView *table)
{
    QStringList shown;
    const QAbstractItemModel *model = table->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column)
            shown.append(model->index(row, column).data().toString());
    }
    return shown;
}

} // namespace

class TestHostLanguages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void languageChangesTheShownTexts_data();
    void languageChangesTheShownTexts();
    void englishAndUnknownLanguagesInstallOnlyTheEnglishSingulars();
    void countedTextsAgreeWithTheirCount_data();
    void countedTextsAgreeWithTheirCount();
    void savedFileIsTheSameUnderEveryLanguage_data();
    void savedFileIsTheSameUnderEveryLanguage();
    void fileLoadsTheSameUnderAnotherLanguage_data();
    void fileLoadsTheSameUnderAnotherLanguage();

private:
    QByteArray save(UploadMode mode, const QString &language, const QString &name);

    QTemporaryDir m_settings;
    QTemporaryDir m_files;
};

void TestHostLanguages::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    QVERIFY(m_settings.isValid());
    QVERIFY(m_files.isValid());
    qputenv("XDG_CONFIG_HOME", m_settings.path().toUtf8());
    QCoreApplication::setOrganizationName(QStringLiteral("TarnTest"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_hostlanguages"));
}

void TestHostLanguages::languageChangesTheShownTexts_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("firstListType");
    QTest::addColumn<QString>("listEndOff");
    QTest::addColumn<QString>("delayerEndLast");
    QTest::addColumn<QString>("windowTitle");

    QTest::newRow("English") << "en"
                             << "Sine"
                             << "Output Off"
                             << "Last"
                             << "Untitled List[*] — Bench Sequence Programmer";
    QTest::newRow("German") << "de"
                            << "Sinus"
                            << "Ausgang aus"
                            << "Letzter Zustand"
                            << "Unbenannte Liste[*] — Sequenzprogrammierer für Labornetzteile";
    QTest::newRow("Simplified Chinese") << "zh_CN"
                                        << "正弦"
                                        << "输出关闭"
                                        << "保持最后状态"
                                        << "未命名列表[*] — 台式电源序列编程器";
}

void TestHostLanguages::languageChangesTheShownTexts()
{
    QFETCH(QString, language);
    QFETCH(QString, firstListType);
    QFETCH(QString, listEndOff);
    QFETCH(QString, delayerEndLast);
    QFETCH(QString, windowTitle);

    const Language installed(language);
    const auto description = tarn::sim::InstrumentDescription::builtIn();
    MainWindow window(description, CommandSet());
    DialogProgrammer *dialog = window.dialog();
    QCOMPARE(dialog->findChild<QComboBox *>(QStringLiteral("cbbListTempType"))->itemText(0),
             firstListType);
    QCOMPARE(dialog->findChild<QComboBox *>(QStringLiteral("cbbListEndState"))->itemText(0),
             listEndOff);
    QCOMPARE(dialog->findChild<QComboBox *>(QStringLiteral("cbbDelayerEndState"))->itemText(2),
             delayerEndLast);
    QCOMPARE(window.windowTitle(), windowTitle);
}

void TestHostLanguages::englishAndUnknownLanguagesInstallOnlyTheEnglishSingulars()
{
    QCOMPARE(Language(QStringLiteral("en")).count(), 1);
    QCOMPARE(Language(QStringLiteral("fr")).count(), 1);
    QVERIFY(Language(QStringLiteral("de")).count() >= 3);
    QVERIFY(Language(QStringLiteral("zh_CN")).count() >= 3);
}

void TestHostLanguages::countedTextsAgreeWithTheirCount_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("oneRow");
    QTest::addColumn<QString>("undoOne");
    QTest::addColumn<QString>("twoRows");
    QTest::addColumn<QString>("undoTwo");
    QTest::newRow("English") << "en"
                             << "Pasted 1 step"
                             << "&Undo Add 1 step"
                             << "Pasted 2 steps"
                             << "&Undo Add 2 steps";
    QTest::newRow("German") << "de"
                            << "1 Schritt eingefügt"
                            << "&Rückgängig: 1 Schritt hinzufügen"
                            << "2 Schritte eingefügt"
                            << "&Rückgängig: 2 Schritte hinzufügen";
}

// Pastes one row and then two, and reads the status line and the Undo entry after each.
void TestHostLanguages::countedTextsAgreeWithTheirCount()
{
    QFETCH(QString, language);
    QFETCH(QString, oneRow);
    QFETCH(QString, undoOne);
    QFETCH(QString, twoRows);
    QFETCH(QString, undoTwo);

    const Language installed(language);
    MainWindow window(tarn::sim::InstrumentDescription::builtIn(), CommandSet());
    SequenceEditor *editor = window.sequenceEditor();
    auto *status = window.dialog()->findChild<QStatusBar *>();

    QApplication::clipboard()->setText(QStringLiteral("1.5\t0.5\t1\n"));
    editor->pasteRows();
    QCOMPARE(status->currentMessage(), oneRow);
    QCOMPARE(editor->undoAction()->text(), undoOne);

    QApplication::clipboard()->setText(QStringLiteral("2\t1\t1\n3\t1\t1\n"));
    editor->pasteRows();
    QCOMPARE(status->currentMessage(), twoRows);
    QCOMPARE(editor->undoAction()->text(), undoTwo);
}

// Saves the tab's default preview, appended twice, with 7 cycles and the end state "On", and
// returns the file's bytes; nothing when the host asked other than the one question a List ending
// in Output On deserves.
QByteArray TestHostLanguages::save(UploadMode mode, const QString &language, const QString &name)
{
    const Language installed(language);
    FileBench bench;
    const TabNames names = namesOf(mode);
    auto *append = bench.child<QPushButton>(names.append);
    append->click();
    append->click();
    bench.child<QSpinBox>(names.cycles)->setValue(7);
    auto *endState = bench.child<QComboBox>(names.endState);
    endState->setCurrentIndex(endState->findData(QStringLiteral("ON")));

    // A List that ends in Output On would not load back; the host asks before saving it.
    if (mode == UploadMode::List)
        bench.prompter.answers << Prompter::Answer::Yes;
    const QString path = m_files.filePath(name);
    bench.prompter.paths << path;
    bench.child<QAction>(names.save)->trigger();
    if (bench.prompter.asked.size() != (mode == UploadMode::List ? 1 : 0))
        return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

void TestHostLanguages::savedFileIsTheSameUnderEveryLanguage_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("list") << int(UploadMode::List);
    QTest::newRow("delayer") << int(UploadMode::Delayer);
}

void TestHostLanguages::savedFileIsTheSameUnderEveryLanguage()
{
    QFETCH(int, mode);
    const QString tag = QString::fromLatin1(QTest::currentDataTag());

    const QByteArray english
        = save(UploadMode(mode), QStringLiteral("en"), tag + QStringLiteral("-en.csv"));
    QVERIFY(english.contains("End Status,Output On\n"));
    QVERIFY(english.contains("Cycles,7\n"));
    QCOMPARE(save(UploadMode(mode), QStringLiteral("de"), tag + QStringLiteral("-de.csv")),
             english);
    QCOMPARE(save(UploadMode(mode), QStringLiteral("zh_CN"), tag + QStringLiteral("-zh_CN.csv")),
             english);
}

void TestHostLanguages::fileLoadsTheSameUnderAnotherLanguage_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("savedIn");
    QTest::addColumn<QString>("loadedIn");
    QTest::addColumn<int>("cycles");
    QTest::addColumn<QString>("endState");

    // A List file never ends with the output on (the loader refuses one), so Lists end off.
    QTest::newRow("list from German in Chinese") << int(UploadMode::List) << "de"
                                                 << "zh_CN" << 7 << "OFF";
    QTest::newRow("list from Chinese in German, endless") << int(UploadMode::List) << "zh_CN"
                                                          << "de" << 0 << "OFF";
    QTest::newRow("delayer from German in Chinese, ending on the last state")
        << int(UploadMode::Delayer) << "de"
        << "zh_CN" << 12 << "LAST";
    QTest::newRow("delayer from Chinese in English, ending on")
        << int(UploadMode::Delayer) << "zh_CN"
        << "en" << 99 << "ON";
}

void TestHostLanguages::fileLoadsTheSameUnderAnotherLanguage()
{
    QFETCH(int, mode);
    QFETCH(QString, savedIn);
    QFETCH(QString, loadedIn);
    QFETCH(int, cycles);
    QFETCH(QString, endState);

    const TabNames names = namesOf(UploadMode(mode));
    const QString path
        = m_files.filePath(QString::fromLatin1(QTest::currentDataTag()) + QStringLiteral(".csv"));
    QStringList saved;
    {
        const Language installed(savedIn);
        FileBench bench;
        bench.child<QPushButton>(names.append)->click();
        bench.child<QSpinBox>(names.cycles)->setValue(cycles);
        auto *combo = bench.child<QComboBox>(names.endState);
        combo->setCurrentIndex(combo->findData(endState));
        saved = cells(bench.child<QTableView>(names.table));
        bench.prompter.paths << path;
        bench.child<QAction>(names.save)->trigger();
    }
    QVERIFY(QFile::exists(path));
    QVERIFY(!saved.isEmpty());

    const Language installed(loadedIn);
    FileBench bench;
    // The tab starts elsewhere, so a load that changed nothing would show.
    bench.child<QSpinBox>(names.cycles)->setValue(cycles + 1);
    auto *combo = bench.child<QComboBox>(names.endState);
    combo->setCurrentIndex(combo->findData(endState) == 0 ? 1 : 0);

    bench.prompter.paths << path;
    bench.child<QAction>(names.load)->trigger();

    QCOMPARE(cells(bench.child<QTableView>(names.table)), saved);
    QCOMPARE(bench.child<QSpinBox>(names.cycles)->value(), cycles);
    QCOMPARE(combo->currentData().toString(), endState);
    const UploadParam param = bench.dialog->getUploadParamFromUI(UploadMode(mode));
    QCOMPARE(param.cycles, cycles);
    QCOMPARE(param.endState, endState);
}

QTEST_MAIN(TestHostLanguages)
#include "tst_hostlanguages.moc"
