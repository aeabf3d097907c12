// A 2048-step List uploaded and verified over loopback TCP by the bench host, against a host that
// waits for one round trip per step, both against tarn_supply_sim in the same run.
#include "scriptedprompter.h"
#include "simulatorprocess.h"

#include "commandset.h"
#include "instrumentoption.h"
#include <dialogprogrammer.h>
#include <instrumentconnection.h>
#include <instrumentdescription.h>
#include <linkfactory.h>
#include <sequenceupload.h>
#include <uploadsession.h>
#include <window/benchcontroller.h>
#include <window/mainwindow.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QHostAddress>
#include <QPushButton>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>

using namespace tarn::host;
using namespace tarn2::specific::orvo5000::programmer;

namespace {

constexpr int steps = 2048;

// A dialog holding at least 2048 List steps (the uploader sends the instrument's 2048).
std::unique_ptr<DialogProgrammer> dialogWithSteps(const tarn::sim::InstrumentDescription &d)
{
    auto dialog = std::make_unique<DialogProgrammer>(optionFor(d), nullptr);
    auto *append = dialog->findChild<QPushButton *>(QStringLiteral("btnListTemplateAppend"));
    for (int i = 0; i < (steps + 29) / 30; ++i)
        append->click();
    return dialog;
}

void BM_UploadAndVerifyWritingAhead(benchmark::State &state)
{
    Simulator server;
    const auto description = tarn::sim::InstrumentDescription::builtIn();
    auto dialog = dialogWithSteps(description);
    BenchController controller(dialog.get(), description, CommandSet());
    QEventLoop loop;
    QObject::connect(&controller, &BenchController::stateChanged, &loop, &QEventLoop::quit);
    controller.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(server.port));
    loop.exec();
    bool verified = false;
    QObject::connect(
        &controller, &BenchController::uploadEnded, &loop, [&](const UploadOutcome &o) {
            verified = o.verified;
            loop.quit();
        });
    for (auto _ : state) {
        dialog->uploaderStart(UploadMode::List);
        loop.exec();
        while (controller.isUploading())
            QCoreApplication::processEvents();
        if (!verified)
            state.SkipWithError("not verified");
    }
    state.SetItemsProcessed(state.iterations() * steps);
}
BENCHMARK(BM_UploadAndVerifyWritingAhead)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MinTime(2.0);

// The baseline: each step is written with *OPC? and the next one asked for only on its reply.
void BM_UploadOneRoundTripPerStep(benchmark::State &state)
{
    Simulator server;
    const auto description = tarn::sim::InstrumentDescription::builtIn();
    auto dialog = dialogWithSteps(description);
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, server.port);
    socket.waitForConnected(5000);
    QEventLoop loop;
    QObject::connect(&socket, &QTcpSocket::readyRead, &loop, [&] {
        while (socket.canReadLine()) {
            socket.readLine();
            QTimer::singleShot(0, dialog.get(), [&] { dialog->uploaderNext(); });
        }
    });
    QObject::connect(
        dialog.get(), &DialogProgrammer::uploaderStarted, &loop, [&](const UploadParam &) {
            socket.write("INST:NSEL 1;LIST:CLE;LIST:REP 1;LIST:END OFF;*OPC?\n");
        });
    QObject::connect(dialog.get(),
                     &DialogProgrammer::uploaderNextData,
                     &loop,
                     [&](int index, const ProgrammerData &data) {
                         const auto &s = static_cast<const ListData &>(data);
                         socket.write("LIST:STEP " + QByteArray::number(index + 1) + ','
                                      + QByteArray::number(s.voltage, 'g', 15) + ','
                                      + QByteArray::number(s.current, 'g', 15) + ','
                                      + QByteArray::number(s.time, 'g', 15) + ";*OPC?\n");
                     });
    QObject::connect(dialog.get(), &DialogProgrammer::uploaderFinished, &loop, [&] {
        dialog->uploaderStop();
        loop.quit();
    });
    for (auto _ : state) {
        dialog->uploaderStart(UploadMode::List);
        loop.exec();
    }
    state.SetItemsProcessed(state.iterations() * steps);
}
BENCHMARK(BM_UploadOneRoundTripPerStep)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

// Figure (c): the same upload from the window on screen, with its traffic panel, progress and
// row selection drawing as it goes, against the sessions alone with no widget at all (as the
// command-line tool runs them). Reported as the time of one upload each, and their ratio.
void BM_UploadInShownWindow(benchmark::State &state)
{
    Simulator server;
    const auto description = tarn::sim::InstrumentDescription::builtIn();
    MainWindow window(description, CommandSet());
    // A question would wait for a hand on a modal box; answered No, it ends the figure instead.
    tarn::host::test::ScriptedPrompter prompter;
    window.setPrompter(&prompter);
    window.resize(1280, 860);
    window.show();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("long.csv"));
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write("LIST,10\nCycles,1\nEnd Status,Output Off\nGroups,2048\n"
               "No.,Voltage(V),Current(A),Time(s)\n");
    for (int i = 0; i < steps; ++i)
        file.write(QByteArray::number(i) + ',' + QByteArray::number(1.0 + (i % 100) / 10.0, 'f', 3)
                   + ",1.500,0.500\n");
    file.close();
    if (!window.openSequenceFile(path))
        state.SkipWithError("the sequence did not load");
    BenchController *controller = window.controller();
    QEventLoop loop;
    QObject::connect(controller, &BenchController::stateChanged, &loop, &QEventLoop::quit);
    window.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(server.port));
    loop.exec();
    bool verified = false;
    QObject::connect(controller, &BenchController::uploadEnded, &loop, [&](const UploadOutcome &o) {
        verified = o.verified;
        loop.quit();
    });
    for (auto _ : state) {
        window.dialog()->uploaderStart(UploadMode::List);
        loop.exec();
        while (controller->isUploading())
            QCoreApplication::processEvents();
        if (!verified)
            state.SkipWithError("not verified");
    }
    state.SetItemsProcessed(state.iterations() * steps);
}
BENCHMARK(BM_UploadInShownWindow)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

void BM_UploadWithoutWindow(benchmark::State &state)
{
    Simulator server;
    const auto description = tarn::sim::InstrumentDescription::builtIn();
    InstrumentConnection connection(
        description, CommandSet(), [&](const QString &address, QString *error) {
            return createLink(address, description, error);
        });
    UploadSession upload(connection.channel(), description, CommandSet());
    SequenceUpload feeder(&upload);
    QEventLoop loop;
    QObject::connect(&connection, &InstrumentConnection::stateChanged, &loop, &QEventLoop::quit);
    connection.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(server.port));
    loop.exec();
    SequenceContent content;
    for (int i = 0; i < steps; ++i)
        content.list.append(ListData(1.0 + (i % 100) / 10.0, 1.5, 0.5));
    bool verified = false;
    QObject::connect(&upload, &UploadSession::ended, &loop, [&](const UploadOutcome &o) {
        verified = o.verified;
        loop.quit();
    });
    for (auto _ : state) {
        feeder.start(content, 1, description.maxCount);
        loop.exec();
        if (!verified)
            state.SkipWithError("not verified");
    }
    state.SetItemsProcessed(state.iterations() * steps);
}
BENCHMARK(BM_UploadWithoutWindow)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("TarnBench"));
    QApplication::setApplicationName(QStringLiteral("bench_hostupload"));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
