// How fast the simulated supply takes commands: through its parser alone, and a whole 2048-step
// List written and read back over a loopback socket to tarn_supply_sim.
#include "commandinterpreter.h"
#include "simulatorprocess.h"
#include "supplyengine.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QTcpSocket>

using namespace tarn::sim;

namespace {

void BM_ParseAndRunStepWrite(benchmark::State &state)
{
    SupplyEngine engine(InstrumentDescription::builtIn());
    CommandInterpreter interpreter(&engine);
    interpreter.execute("LIST:STEP 1,1,1,1");
    for (auto _ : state)
        benchmark::DoNotOptimize(interpreter.execute("LIST:STEP 1,12.345,1.5,0.125"));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ParseAndRunStepWrite);

void BM_ParseAndRunQueries(benchmark::State &state)
{
    SupplyEngine engine(InstrumentDescription::builtIn());
    CommandInterpreter interpreter(&engine);
    interpreter.execute("VOLT 5;OUTP ON");
    for (auto _ : state)
        benchmark::DoNotOptimize(interpreter.execute("MEAS:VOLT?;SYST:ERR?"));
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(BM_ParseAndRunQueries);

bool readLine(QTcpSocket &socket, QByteArray *line)
{
    QElapsedTimer waited;
    waited.start();
    while (!socket.canReadLine() && waited.elapsed() < 10000)
        socket.waitForReadyRead(100);
    if (!socket.canReadLine())
        return false;
    *line = socket.readLine();
    return true;
}

// 2048 step writes sent back to back, one *OPC? to wait for them, then one read-back of the whole
// sequence: the way the bench host uploads and verifies.
void BM_LoopbackList2048WriteAndReadBack(benchmark::State &state)
{
    Simulator sim;
    const quint16 port = sim.port;
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, port);
    if (!socket.waitForConnected(5000)) {
        state.SkipWithError("no simulator");
        return;
    }
    QByteArray batch;
    for (int i = 1; i <= 2048; ++i)
        batch += "LIST:STEP " + QByteArray::number(i) + ",12.345,1.234,0.125\n";
    QByteArray line;
    for (auto _ : state) {
        socket.write("LIST:CLE\n" + batch + "*OPC?\n");
        if (!readLine(socket, &line))
            state.SkipWithError("no reply to *OPC?");
        socket.write("LIST:DATA?\n");
        if (!readLine(socket, &line) || line.count(',') != 3 * 2048 - 1)
            state.SkipWithError("read-back incomplete");
    }
    state.SetItemsProcessed(state.iterations() * 2048);
}
BENCHMARK(BM_LoopbackList2048WriteAndReadBack)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
