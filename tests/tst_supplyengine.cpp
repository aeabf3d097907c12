// Tests of the simulated supply behind its command set: every refusal, the load and playback.
#include "commandinterpreter.h"
#include "supplyengine.h"

#include <QtTest>

#include <memory>

using namespace tarn::sim;

namespace {

// The supply on a clock the test moves by hand.
struct Supply
{
    Supply()
        : engine(InstrumentDescription::builtIn(), [this] { return nowNs; })
        , interpreter(&engine)
    {}

    // The reply to one line, or "(none)" when no query answered.
    QByteArray send(const QByteArray &line)
    {
        return interpreter.execute(line).value_or(QByteArray("(none)"));
    }

    void advanceMs(double ms) { nowNs += static_cast<qint64>(ms * 1e6); }

    qint64 nowNs = 1000000000;
    SupplyEngine engine;
    CommandInterpreter interpreter;
};

} // namespace

class TestSupplyEngine : public QObject
{
    Q_OBJECT

private slots:
    void refusedRequestsChangeNothing_data();
    void refusedRequestsChangeNothing();
    void stepsAreStoredAtTheInstrumentsDecimals();
    void injectedFaultRefusesOneStep();
    void errorQueueIsBoundedAndReportsOverflow();
    void resetClearsSequencesButKeepsErrors();
    void loadDecidesConstantVoltageOrCurrent_data();
    void loadDecidesConstantVoltageOrCurrent();
    void listPlaysInRealTimeTimesTheSpeed_data();
    void listPlaysInRealTimeTimesTheSpeed();
    void delayerSwitchesTheOutput();
    void endlessRunStopsOnlyOnCommand();
    void outputOffEndsARun_data();
    void outputOffEndsARun();
    void eachErrorSetsTheEventBitOfItsClass_data();
    void eachErrorSetsTheEventBitOfItsClass();
    void freshSupplyAnswersALine_data();
    void freshSupplyAnswersALine();
    void operationEventsLatchARunBetweenTwoLooks();
    void protectionTripsAsTheOutputChanges_data();
    void protectionTripsAsTheOutputChanges();
    void protectionTripsWhenAPlayingStepGoesAbove_data();
    void protectionTripsWhenAPlayingStepGoesAbove();
};

void TestSupplyEngine::refusedRequestsChangeNothing_data()
{
    QTest::addColumn<QByteArray>("prepare");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("error");
    QTest::addColumn<QByteArray>("query");
    QTest::addColumn<QByteArray>("unchanged");

    const QByteArray oneStep = "LIST:STEP 1,1,1,1";
    QTest::newRow("voltage above the range")
        << oneStep << QByteArray("LIST:STEP 1,33,1,1")
        << QByteArray("-222,\"Data out of range;voltage 33 is outside 0..32\"")
        << QByteArray("LIST:STEP? 1") << QByteArray("1.000,1.000,1.000");
    QTest::newRow("negative voltage")
        << oneStep << QByteArray("LIST:STEP 2,-0.5,1,1")
        << QByteArray("-222,\"Data out of range;voltage -0.5 is outside 0..32\"")
        << QByteArray("LIST:COUN?") << QByteArray("1");
    QTest::newRow("current above the parallel channel's range")
        << QByteArray("INST PARALLEL;LIST:STEP 1,1,6.4,1") << QByteArray("LIST:STEP 1,1,6.5,1")
        << QByteArray("-222,\"Data out of range;current 6.5 is outside 0..6.4\"")
        << QByteArray("LIST:STEP? 1") << QByteArray("1.000,6.400,1.000");
    QTest::newRow("time below the shortest")
        << oneStep << QByteArray("LIST:STEP 2,1,1,0.0005")
        << QByteArray("-222,\"Data out of range;time 0.0005 is outside 0.001..99999\"")
        << QByteArray("LIST:COUN?") << QByteArray("1");
    QTest::newRow("time above the longest")
        << oneStep << QByteArray("LIST:STEP 1,1,1,100000")
        << QByteArray("-222,\"Data out of range;time 100000 is outside 0.001..99999\"")
        << QByteArray("LIST:STEP? 1") << QByteArray("1.000,1.000,1.000");
    QTest::newRow("time off the quantum")
        << oneStep << QByteArray("LIST:STEP 2,1,1,0.0015")
        << QByteArray("-224,\"Illegal parameter value;time 0.0015 is not a multiple of 0.001 s\"")
        << QByteArray("LIST:COUN?") << QByteArray("1");
    QTest::newRow("not a number")
        << oneStep << QByteArray("LIST:STEP 1,NAN,1,1")
        << QByteArray("-222,\"Data out of range;voltage is not a finite number\"")
        << QByteArray("LIST:STEP? 1") << QByteArray("1.000,1.000,1.000");
    QTest::newRow("a gap after the last step")
        << oneStep << QByteArray("LIST:STEP 3,1,1,1")
        << QByteArray("-222,\"Data out of range;step 3 would leave a gap after step 1\"")
        << QByteArray("LIST:COUN?") << QByteArray("1");
    QTest::newRow("step 0") << oneStep << QByteArray("LIST:STEP 0,1,1,1")
                            << QByteArray("-222,\"Data out of range;step 0 would leave a gap after "
                                          "step 1\"")
                            << QByteArray("LIST:COUN?") << QByteArray("1");
    QTest::newRow("beyond the longest sequence")
        << oneStep << QByteArray("LIST:STEP 2049,1,1,1")
        << QByteArray("-223,\"Too much data;step 2049 is beyond the 2048 steps a sequence holds\"")
        << QByteArray("LIST:COUN?") << QByteArray("1");
    QTest::newRow("fractional index")
        << oneStep << QByteArray("LIST:STEP 1.5,2,1,1")
        << QByteArray("-224,\"Illegal parameter value;expected a whole number\"")
        << QByteArray("LIST:STEP? 1") << QByteArray("1.000,1.000,1.000");
    QTest::newRow("missing parameter")
        << oneStep << QByteArray("LIST:STEP 1,2,1") << QByteArray("-109,\"Missing parameter\"")
        << QByteArray("LIST:STEP? 1") << QByteArray("1.000,1.000,1.000");
    QTest::newRow("one parameter too many")
        << oneStep << QByteArray("LIST:STEP 1,2,1,1,1")
        << QByteArray("-108,\"Parameter not allowed\"") << QByteArray("LIST:STEP? 1")
        << QByteArray("1.000,1.000,1.000");
    QTest::newRow("a word for a number")
        << oneStep << QByteArray("LIST:STEP 1,high,1,1") << QByteArray("-104,\"Data type error\"")
        << QByteArray("LIST:STEP? 1") << QByteArray("1.000,1.000,1.000");
    QTest::newRow("undefined header")
        << oneStep << QByteArray("LIST:STEPS 1,2,1,1") << QByteArray("-113,\"Undefined header\"")
        << QByteArray("LIST:STEP? 1") << QByteArray("1.000,1.000,1.000");
    QTest::newRow("syntax error") << oneStep << QByteArray("LIST:STEP 1,,2,1")
                                  << QByteArray("-102,\"Syntax error\"")
                                  << QByteArray("LIST:STEP? 1") << QByteArray("1.000,1.000,1.000");
    QTest::newRow("delayer state neither on nor off")
        << QByteArray("DEL:STEP 1,OFF,1") << QByteArray("DEL:STEP 1,MAYBE,2")
        << QByteArray("-224,\"Illegal parameter value;expected ON or OFF\"")
        << QByteArray("DEL:DATA?") << QByteArray("0,1.000");
    QTest::newRow("repeat count too large")
        << QByteArray("LIST:REP 7") << QByteArray("LIST:REP 100000")
        << QByteArray("-222,\"Data out of range;repeat count 100000 is outside 0..99999\"")
        << QByteArray("LIST:REP?") << QByteArray("7");
    QTest::newRow("unknown end state")
        << QByteArray("DEL:END LAST") << QByteArray("DEL:END HALF")
        << QByteArray("-224,\"Illegal parameter value;expected OFF, ON or LAST\"")
        << QByteArray("DEL:END?") << QByteArray("LAST");
    QTest::newRow("writing a running list")
        << QByteArray("LIST:STEP 1,1,1,1;LIST:RUN") << QByteArray("LIST:STEP 1,2,1,1")
        << QByteArray("-221,\"Settings conflict;the list is running\"")
        << QByteArray("LIST:STEP? 1") << QByteArray("1.000,1.000,1.000");
    QTest::newRow("clearing a running delayer")
        << QByteArray("DEL:STEP 1,ON,1;DEL:RUN") << QByteArray("DEL:CLE")
        << QByteArray("-221,\"Settings conflict;the delayer is running\"")
        << QByteArray("DEL:COUN?") << QByteArray("1");
    QTest::newRow("list started while the delayer runs")
        << QByteArray("LIST:STEP 1,1,1,1;DEL:STEP 1,ON,1;DEL:RUN") << QByteArray("LIST:RUN")
        << QByteArray("-221,\"Settings conflict;the delayer is running on CH1\"")
        << QByteArray("LIST:STAT?;DEL:STAT?") << QByteArray("STOP;RUN");
    QTest::newRow("running an empty delayer")
        << QByteArray() << QByteArray("DEL:RUN")
        << QByteArray("-221,\"Settings conflict;the delayer holds no steps\"")
        << QByteArray("DEL:STAT?;OUTP?") << QByteArray("STOP;0");
    QTest::newRow("set-point while the list runs")
        << QByteArray("VOLT 2;LIST:STEP 1,1,1,1;LIST:RUN") << QByteArray("VOLT 3")
        << QByteArray("-221,\"Settings conflict;the list is running\"") << QByteArray("VOLT?")
        << QByteArray("2.000");
    QTest::newRow("output on while a sequence runs")
        << QByteArray("DEL:STEP 1,OFF,1;DEL:RUN") << QByteArray("OUTP ON")
        << QByteArray("-221,\"Settings conflict;a sequence is running\"") << QByteArray("OUTP?")
        << QByteArray("0");
    QTest::newRow("voltage set-point above the range")
        << QByteArray("VOLT 5") << QByteArray("VOLT 32.01")
        << QByteArray("-222,\"Data out of range;voltage 32.01 is outside 0..32\"")
        << QByteArray("VOLT?") << QByteArray("5.000");
    // A quote in the detail would end the error's string early; it comes back as an apostrophe.
    QTest::newRow("unknown channel name")
        << QByteArray("INST CH2") << QByteArray("INST 'CH\"9'")
        << QByteArray("-224,\"Illegal parameter value;no channel named CH'9\"")
        << QByteArray("INST?") << QByteArray("CH2");
    QTest::newRow("channel number beyond the last")
        << QByteArray("INST:NSEL 3") << QByteArray("INST:NSEL 7")
        << QByteArray("-224,\"Illegal parameter value;no channel 7\"") << QByteArray("INST:NSEL?")
        << QByteArray("3");
}

void TestSupplyEngine::refusedRequestsChangeNothing()
{
    QFETCH(QByteArray, prepare);
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, error);
    QFETCH(QByteArray, query);
    QFETCH(QByteArray, unchanged);

    Supply supply;
    supply.send(prepare);
    QCOMPARE(supply.send("SYST:ERR?"), QByteArray("0,\"No error\""));

    QCOMPARE(supply.send(command), QByteArray("(none)"));
    QCOMPARE(supply.send("SYST:ERR?"), error);
    QCOMPARE(supply.send("SYST:ERR?"), QByteArray("0,\"No error\""));
    QCOMPARE(supply.send(query), unchanged);
}

void TestSupplyEngine::stepsAreStoredAtTheInstrumentsDecimals()
{
    Supply supply;
    supply.send("LIST:STEP 1,1.23456,0.0004,2.5;LIST:STEP 2,500mV,#H1,1500MS");
    QCOMPARE(supply.send("SYST:ERR:COUN?"), QByteArray("0"));
    QCOMPARE(supply.send("LIST:DATA?"), QByteArray("1.235,0.000,2.500,0.500,1.000,1.500"));
    QCOMPARE(supply.engine.listSteps(0).at(0).voltage, 1.235);
    QCOMPARE(supply.engine.listSteps(0).at(1).ticks, qint64(1500));
}

void TestSupplyEngine::injectedFaultRefusesOneStep()
{
    Supply supply;
    supply.engine.setRefusedStep(2);
    supply.send("LIST:STEP 1,1,1,1;LIST:STEP 2,1,1,1;LIST:STEP 2,1,1,1");
    QCOMPARE(supply.send("LIST:COUN?"), QByteArray("1"));
    QCOMPARE(supply.send("SYST:ERR?"),
             QByteArray("-222,\"Data out of range;step 2 refused by fault injection\""));
    QCOMPARE(supply.send("SYST:ERR:COUN?"), QByteArray("1"));
}

void TestSupplyEngine::errorQueueIsBoundedAndReportsOverflow()
{
    Supply supply;
    for (int i = 0; i < 100; ++i)
        supply.send("BOGUS");
    QCOMPARE(supply.send("SYST:ERR:COUN?"), QByteArray::number(ErrorQueue::capacity));
    for (int i = 0; i < ErrorQueue::capacity - 1; ++i)
        QCOMPARE(supply.send("SYST:ERR?"), QByteArray("-113,\"Undefined header\""));
    QCOMPARE(supply.send("SYST:ERR?"), QByteArray("-350,\"Queue overflow\""));
    QCOMPARE(supply.send("SYST:ERR?"), QByteArray("0,\"No error\""));
    supply.send("BOGUS;*CLS");
    QCOMPARE(supply.send("SYST:ERR:COUN?"), QByteArray("0"));
}

void TestSupplyEngine::resetClearsSequencesButKeepsErrors()
{
    Supply supply;
    supply.send("INST CH3;LIST:STEP 1,1,1,1;LIST:REP 0;OUTP ON;BOGUS;*RST");
    QCOMPARE(supply.send("INST?;LIST:COUN?;LIST:REP?;LIST:END?;OUTP?"),
             QByteArray("CH1;0;1;OFF;0"));
    supply.send("INST CH3");
    QCOMPARE(supply.send("LIST:COUN?;OUTP?"), QByteArray("0;0"));
    QCOMPARE(supply.send("SYST:ERR?"), QByteArray("-113,\"Undefined header\""));
}

void TestSupplyEngine::loadDecidesConstantVoltageOrCurrent_data()
{
    QTest::addColumn<double>("ohms");
    QTest::addColumn<QByteArray>("setup");
    QTest::addColumn<QByteArray>("measured");

    QTest::newRow("constant voltage")
        << 10.0 << QByteArray("VOLT 5;CURR 1;OUTP ON") << QByteArray("5.000;0.500;2.500");
    QTest::newRow("constant current")
        << 10.0 << QByteArray("VOLT 20;CURR 0.5;OUTP ON") << QByteArray("5.000;0.500;2.500");
    QTest::newRow("exactly at the corner")
        << 4.0 << QByteArray("VOLT 8;CURR 2;OUTP ON") << QByteArray("8.000;2.000;16.000");
    QTest::newRow("output off") << 10.0 << QByteArray("VOLT 5;CURR 1;OUTP OFF")
                                << QByteArray("0.000;0.000;0.000");
}

void TestSupplyEngine::loadDecidesConstantVoltageOrCurrent()
{
    QFETCH(double, ohms);
    QFETCH(QByteArray, setup);
    QFETCH(QByteArray, measured);

    Supply supply;
    supply.engine.setLoad(ohms);
    supply.send(setup);
    QCOMPARE(supply.send("MEAS:VOLT?;MEAS:CURR?;MEAS:POW?"), measured);
}

void TestSupplyEngine::listPlaysInRealTimeTimesTheSpeed_data()
{
    QTest::addColumn<double>("ms");
    QTest::addColumn<QByteArray>("position");
    QTest::addColumn<QByteArray>("voltage");

    // Steps of 0.1, 0.2 and 0.3 s at ten times the speed: 10, 20 and 30 ms of real time.
    QTest::newRow("start") << 0.0 << QByteArray("1,1,0.000") << QByteArray("1.000");
    QTest::newRow("just before step 2") << 9.999 << QByteArray("1,1,0.099") << QByteArray("1.000");
    QTest::newRow("step 2") << 10.0 << QByteArray("2,1,0.100") << QByteArray("2.000");
    QTest::newRow("step 3") << 30.0 << QByteArray("3,1,0.300") << QByteArray("3.000");
    QTest::newRow("second cycle") << 60.0 << QByteArray("1,2,0.600") << QByteArray("1.000");
    QTest::newRow("last step of the last cycle")
        << 119.9 << QByteArray("3,2,1.199") << QByteArray("3.000");
    QTest::newRow("ended") << 120.0 << QByteArray("0,0,0.000") << QByteArray("0.000");
}

void TestSupplyEngine::listPlaysInRealTimeTimesTheSpeed()
{
    QFETCH(double, ms);
    QFETCH(QByteArray, position);
    QFETCH(QByteArray, voltage);

    Supply supply;
    supply.engine.setSpeed(10.0);
    supply.send("LIST:STEP 1,1,1,0.1;LIST:STEP 2,2,1,0.2;LIST:STEP 3,3,1,0.3;LIST:REP 2;LIST:RUN");
    supply.advanceMs(ms);
    QCOMPARE(supply.send("LIST:POS?"), position);
    QCOMPARE(supply.send("MEAS:VOLT?"), voltage);
}

void TestSupplyEngine::delayerSwitchesTheOutput()
{
    Supply supply;
    supply.send(
        "VOLT 4;CURR 1;DEL:STEP 1,ON,0.2;DEL:STEP 2,OFF,0.1;DEL:REP 3;DEL:END LAST;DEL:RUN");
    const QVector<QPair<double, QByteArray>> expected{
        {0, "1;4.000;1,1"},
        {199, "1;4.000;1,1"},
        {200, "0;0.000;2,1"},
        {300, "1;4.000;1,2"},
        {850, "0;0.000;2,3"},
        {900, "0;0.000;0,0"},
    };
    double at = 0;
    for (const auto &[ms, reply] : expected) {
        supply.advanceMs(ms - at);
        at = ms;
        const QByteArray position = supply.send("DEL:POS?");
        QCOMPARE(supply.send("OUTP?;MEAS:VOLT?") + ';' + position.left(position.lastIndexOf(',')),
                 reply);
    }
}

void TestSupplyEngine::endlessRunStopsOnlyOnCommand()
{
    Supply supply;
    supply.engine.setSpeed(1000.0);
    supply.send("LIST:STEP 1,2,1,1;LIST:REP INF;LIST:END OFF;LIST:RUN");
    QCOMPARE(supply.send("LIST:REP?"), QByteArray("INF"));
    supply.advanceMs(3600.0 * 1000.0); // an hour of real time: 3.6 million cycles of 1 s
    QCOMPARE(supply.send("LIST:STAT?;LIST:POS?"), QByteArray("RUN;1,3600001,3600000.000"));
    supply.send("LIST:STOP");
    QCOMPARE(supply.send("LIST:STAT?;OUTP?;LIST:POS?"), QByteArray("STOP;0;0,0,0.000"));
}

void TestSupplyEngine::outputOffEndsARun_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::newRow("list") << QByteArray("LIST");
    QTest::newRow("delayer") << QByteArray("DEL");
}

// Switching off is the way out of anything: the run ends without its end state.
void TestSupplyEngine::outputOffEndsARun()
{
    QFETCH(QByteArray, mode);
    Supply supply;
    supply.send("VOLT 2;LIST:STEP 1,2,1,1;DEL:STEP 1,ON,1");
    supply.send(mode + ":REP 0;" + mode + ":END LAST;" + mode + ":RUN;OUTP OFF");
    QCOMPARE(supply.send(mode + ":STAT?;OUTP?;MEAS:VOLT?"), QByteArray("STOP;0;0.000"));
    QCOMPARE(supply.send("SYST:ERR:COUN?"), QByteArray("0"));
}

void TestSupplyEngine::eachErrorSetsTheEventBitOfItsClass_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("eventStatus");

    QTest::newRow("command error") << -100 << 32;
    QTest::newRow("execution error") << -299 << 16;
    QTest::newRow("device-dependent error") << -300 << 8;
    QTest::newRow("query error") << -499 << 4;
    QTest::newRow("instrument-defined error") << 101 << 8;
}

// Also when the full queue can no longer keep the error itself.
void TestSupplyEngine::eachErrorSetsTheEventBitOfItsClass()
{
    QFETCH(int, error);
    QFETCH(int, eventStatus);
    Supply supply;
    QCOMPARE(supply.send("*ESR?;*ESR?"), QByteArray("128;0"));
    for (int i = 0; i < ErrorQueue::capacity; ++i)
        supply.send("BOGUS");
    supply.send("*ESR?");
    supply.engine.errors().push(static_cast<ScpiError>(error));
    QCOMPARE(supply.send("*ESR?;*ESR?;SYST:ERR:COUN?"),
             QByteArray::number(eventStatus) + ";0;" + QByteArray::number(ErrorQueue::capacity));
}

void TestSupplyEngine::freshSupplyAnswersALine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("reply");

    // The status byte summarises the enabled bits.
    QTest::newRow("power-on event, not enabled") << QByteArray("*STB?") << QByteArray("0");
    QTest::newRow("power-on event, enabled")
        << QByteArray("*ESE 128;*STB?;*ESE?") << QByteArray("32;128");
    QTest::newRow("an error waits") << QByteArray("*CLS;BOGUS;*STB?") << QByteArray("4");
    QTest::newRow("an answer waits on the line")
        << QByteArray("*CLS;*IDN?;*STB?")
        << QByteArray("Tarn,Simulated Supply,SIM-000001,1.0.0;16");
    QTest::newRow("*OPC sets its bit") << QByteArray("*CLS;*OPC;*ESR?") << QByteArray("1");
    QTest::newRow("master summary of the enabled error bit")
        << QByteArray("*CLS;*SRE 4;BOGUS;*STB?;*SRE?") << QByteArray("68;4");
    QTest::newRow("bits that cannot be enabled read 0, masks are rounded")
        << QByteArray("*SRE 255;*SRE?;*ESE 31.6;*ESE?;STAT:QUES:ENAB 65535;STAT:QUES:ENAB?")
        << QByteArray("191;32;32767");
    QTest::newRow("questionable summary")
        << QByteArray("*CLS;STAT:QUES:ENAB 1;VOLT 5;VOLT:PROT 4;OUTP ON;*STB?;SYST:ERR?;*STB?")
        << QByteArray(
               "12;-300,\"Device-specific error;over-voltage protection tripped on CH1\";24");
    QTest::newRow("operation summary") << QByteArray("*CLS;STAT:OPER:ENAB 1024;VOLT 20;CURR 1;"
                                                     "OUTP ON;*STB?;STAT:OPER:COND?")
                                       << QByteArray("128;1024");
    QTest::newRow("*CLS empties the events, not the enables")
        << QByteArray("*ESE 32;BOGUS;*CLS;*STB?;*ESR?;*ESE?") << QByteArray("0;0;32");
    QTest::newRow("preset clears the register enables")
        << QByteArray("STAT:OPER:ENAB 1024;STAT:QUES:ENAB 3;*ESE 8;STAT:PRES;"
                      "STAT:OPER:ENAB?;STAT:QUES:ENAB?;*ESE?")
        << QByteArray("0;0;8");
    QTest::newRow("enable above its register")
        << QByteArray("*SRE 256;STAT:OPER:ENAB 65536;SYST:ERR?;SYST:ERR?;*SRE?;STAT:OPER:ENAB?")
        << QByteArray("-222,\"Data out of range;mask 256 is outside 0..255\";"
                      "-222,\"Data out of range;mask 65536 is outside 0..65535\";0;0");

    // MIN, MAX and DEF stand for the channel's limits.
    QTest::newRow("voltage limits")
        << QByteArray("VOLT? MIN;VOLT? MAX;VOLT? DEF") << QByteArray("0.000;32.000;0.000");
    QTest::newRow("current limits of another channel")
        << QByteArray("INST PARALLEL;CURR? MINIMUM;curr? maximum;CURR? DEFAULT")
        << QByteArray("0.000;6.400;6.400");
    QTest::newRow("protection levels")
        << QByteArray("INST SERIES;VOLT:PROT? MAX;VOLT:PROT?;CURR:PROT? DEF")
        << QByteArray("64.000;64.000;3.200");
    QTest::newRow("set-points") << QByteArray("VOLT MAX;CURR MIN;VOLT?;CURR?;VOLT DEF;VOLT?")
                                << QByteArray("32.000;0.000;0.000");
    QTest::newRow("a step's values")
        << QByteArray("LIST:STEP MIN,MAX,MIN,MAX;LIST:STEP 2,DEF,DEF,DEF;LIST:DATA?")
        << QByteArray("32.000,0.000,99999.000,0.000,3.200,1.000");
    QTest::newRow("repeat count") << QByteArray("LIST:REP MAX;LIST:REP?") << QByteArray("99999");
    QTest::newRow("channel number") << QByteArray("INST:NSEL MAX;INST?") << QByteArray("Parallel");
    QTest::newRow("not a limit") << QByteArray("VOLT? HIGH;SYST:ERR?")
                                 << QByteArray("-224,\"Illegal parameter value;expected MIN, MAX "
                                               "or DEF\"");
    QTest::newRow("where no limit is taken")
        << QByteArray("LIST:END MAX;SYST:ERR?;LIST:END?")
        << QByteArray("-224,\"Illegal parameter value;expected "
                      "OFF, ON or LAST\";OFF");

    // Queries on one line share one reply; a line without a query gets none.
    QTest::newRow("queries on one line")
        << QByteArray("*IDN?;inst:nsel 6;:INSTRUMENT:SELECT?;*OPC?")
        << QByteArray("Tarn,Simulated Supply,SIM-000001,1.0.0;Parallel;1");
    QTest::newRow("channel catalogue")
        << QByteArray("INST:CAT?")
        << QByteArray("\"CH1\",\"CH2\",\"CH3\",\"CH4\",\"Series\",\"Parallel\"");
    QTest::newRow("no query") << QByteArray("OUTP ON;VOLT 3") << QByteArray("(none)");

    // Rewriting a step replaces it; clearing empties the sequence.
    QTest::newRow("step rewritten")
        << QByteArray("DEL:STEP 1,ON,0.1;DEL:STEP 2,OFF,0.2;DEL:STEP 1,OFF,0.3;DEL:DATA?;DEL:COUN?")
        << QByteArray("0,0.300,0,0.200;2");
    QTest::newRow("steps cleared")
        << QByteArray("DEL:STEP 1,ON,0.1;DEL:CLE;DEL:DATA?;DEL:COUN?") << QByteArray(";0");

    // The self-test leaves the supply as it was.
    QTest::newRow("self-test") << QByteArray(
        "INST CH2;VOLT 3;LIST:STEP 1,2,1,1;LIST:RUN;"
        "*TST?;INST?;VOLT?;LIST:STAT?;LIST:COUN?;SYST:ERR:COUN?")
                               << QByteArray("0;CH2;3.000;RUN;1;0");
}

void TestSupplyEngine::freshSupplyAnswersALine()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, reply);
    Supply supply;
    QCOMPARE(supply.send(line), reply);
}

void TestSupplyEngine::operationEventsLatchARunBetweenTwoLooks()
{
    Supply supply;
    supply.send("LIST:STEP 1,2,1,0.5;DEL:STEP 1,ON,0.5;LIST:RUN");
    QCOMPARE(supply.send("STAT:OPER:COND?"), QByteArray("256"));
    supply.advanceMs(600);
    supply.send("DEL:RUN");
    supply.advanceMs(600);
    QCOMPARE(supply.send("STAT:OPER:COND?;STAT:OPER?;STAT:OPER?"), QByteArray("0;768;0"));
}

void TestSupplyEngine::protectionTripsAsTheOutputChanges_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("state"); // output, the two trips, the error

    const QByteArray overVoltage
        = "-300,\"Device-specific error;over-voltage protection tripped on ";
    QTest::newRow("switched on above the level")
        << QByteArray("VOLT 5;VOLT:PROT 4.999;OUTP ON") << "0;1;0;" + overVoltage + "CH1\"";
    QTest::newRow("exactly at the level")
        << QByteArray("VOLT 5;VOLT:PROT 5;OUTP ON") << QByteArray("1;0;0;0,\"No error\"");
    QTest::newRow("level lowered under the output")
        << QByteArray("INST CH3;VOLT 5;OUTP ON;VOLT:PROT 4") << "0;1;0;" + overVoltage + "CH3\"";
    QTest::newRow("set-point raised over the level")
        << QByteArray("VOLT 5;VOLT:PROT 6;OUTP ON;VOLT 7") << "0;1;0;" + overVoltage + "CH1\"";
    QTest::newRow("over-current in constant current")
        << QByteArray("VOLT 20;CURR 1;CURR:PROT 0.9;OUTP ON")
        << QByteArray("0;0;1;-300,\"Device-specific error;over-current protection tripped on "
                      "CH1\"");
    QTest::newRow("constant current holds the voltage under the level")
        << QByteArray("VOLT 20;CURR 1;VOLT:PROT 15;OUTP ON") << QByteArray("1;0;0;0,\"No error\"");
    QTest::newRow("a current limit the load never draws")
        << QByteArray("VOLT 5;CURR 2;CURR:PROT 0.5;OUTP ON") << QByteArray("1;0;0;0,\"No error\"");
    QTest::newRow("a trip refuses the output until it is cleared")
        << QByteArray("VOLT 5;VOLT:PROT 4;OUTP ON;SYST:ERR?;VOLT:PROT 6;OUTP ON")
        << QByteArray("0;1;0;-221,\"Settings conflict;protection tripped on CH1; clear it with "
                      "OUTP:PROT:CLE first\"");
    QTest::newRow("cleared, switched on again")
        << QByteArray("VOLT 5;VOLT:PROT 4;OUTP ON;SYST:ERR?;VOLT:PROT 6;OUTP:PROT:CLE;OUTP ON")
        << QByteArray("1;0;0;0,\"No error\"");
}

void TestSupplyEngine::protectionTripsAsTheOutputChanges()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, state);
    Supply supply;
    supply.send(line);
    QCOMPARE(supply.send("OUTP?;VOLT:PROT:TRIP?;CURR:PROT:TRIP?;SYST:ERR?"), state);
}

void TestSupplyEngine::protectionTripsWhenAPlayingStepGoesAbove_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::addColumn<QByteArray>("level");
    QTest::addColumn<double>("levelAtMs"); // when the level is set, from the start of the run
    QTest::addColumn<double>("tripMs");    // when the first step above it starts
    QTest::addColumn<int>("questionable");

    // Steps of 1 s at 5, 8 and 5 V, or Off, On, Off at 5 V, three cycles, end state On.
    QTest::newRow("list step above over-voltage")
        << QByteArray("LIST") << QByteArray("VOLT:PROT 6") << 0.0 << 1000.0 << 1;
    QTest::newRow("list step above over-current")
        << QByteArray("LIST") << QByteArray("CURR:PROT 0.7") << 0.0 << 1000.0 << 2;
    QTest::newRow("delayer switching on above the level")
        << QByteArray("DEL") << QByteArray("VOLT:PROT 4") << 0.0 << 1000.0 << 1;
    QTest::newRow("level lowered during the run, for the next cycle")
        << QByteArray("LIST") << QByteArray("VOLT:PROT 6") << 2500.0 << 4000.0 << 1;
    QTest::newRow("level lowered during the last cycle")
        << QByteArray("LIST") << QByteArray("VOLT:PROT 6") << 6500.0 << 7000.0 << 1;
}

// The trip comes at the instant the step starts: the output goes off, the run ends without its
// end state, and the error and the questionable bit say why.
void TestSupplyEngine::protectionTripsWhenAPlayingStepGoesAbove()
{
    QFETCH(QByteArray, mode);
    QFETCH(QByteArray, level);
    QFETCH(double, levelAtMs);
    QFETCH(double, tripMs);
    QFETCH(int, questionable);
    Supply supply;
    supply.send("VOLT 5;CURR 1;LIST:STEP 1,5,1,1;LIST:STEP 2,8,1,1;LIST:STEP 3,5,1,1;"
                "DEL:STEP 1,OFF,1;DEL:STEP 2,ON,1;DEL:STEP 3,OFF,1;"
                "LIST:REP 3;DEL:REP 3;LIST:END ON;DEL:END ON");
    if (levelAtMs == 0)
        supply.send(level);
    supply.send(mode + ":RUN");
    supply.advanceMs(levelAtMs);
    supply.send(level);
    supply.advanceMs(tripMs - levelAtMs - 1);
    QCOMPARE(supply.send(mode + ":STAT?;STAT:QUES:COND?"), QByteArray("RUN;0"));
    supply.advanceMs(1);
    QCOMPARE(supply.send(mode + ":STAT?;OUTP?;STAT:QUES:COND?"),
             "STOP;0;" + QByteArray::number(questionable));
    QVERIFY(supply.send("SYST:ERR?").startsWith("-300,"));
    QCOMPARE(supply.send(mode + ":RUN;SYST:ERR?").left(5), QByteArray("-221,"));
}

QTEST_APPLESS_MAIN(TestSupplyEngine)
#include "tst_supplyengine.moc"
