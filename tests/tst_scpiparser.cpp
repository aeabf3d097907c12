// Tests of the simulated supply's command parser: numbers, headers, splitting and bad forms.
#include "scpiparser.h"

#include <QtTest>

#include <cmath>

using namespace tarn::sim;

class TestScpiParser : public QObject
{
    Q_OBJECT

private slots:
    void numbers_data();
    void numbers();
    void badNumbers_data();
    void badNumbers();
    void headers_data();
    void headers();
    void commands_data();
    void commands();
    void badCommands_data();
    void badCommands();
    void semicolonsOutsideQuotesSplitCommands();
};

void TestScpiParser::numbers_data()
{
    QTest::addColumn<QByteArray>("token");
    QTest::addColumn<char>("unit");
    QTest::addColumn<double>("value");

    QTest::newRow("integer") << QByteArray("12") << '\0' << 12.0;
    QTest::newRow("plus sign") << QByteArray("+1.5") << '\0' << 1.5;
    QTest::newRow("leading point") << QByteArray("-.5") << '\0' << -0.5;
    QTest::newRow("trailing point") << QByteArray("2.") << '\0' << 2.0;
    QTest::newRow("exponent") << QByteArray("1E3") << '\0' << 1000.0;
    QTest::newRow("lower-case exponent") << QByteArray("1.5e-3") << '\0' << 0.0015;
    QTest::newRow("spaces around the exponent") << QByteArray("2.5 E +2") << '\0' << 250.0;
    QTest::newRow("hexadecimal") << QByteArray("#H1F") << '\0' << 31.0;
    QTest::newRow("octal") << QByteArray("#q17") << '\0' << 15.0;
    QTest::newRow("binary") << QByteArray("#B101") << '\0' << 5.0;
    QTest::newRow("unit") << QByteArray("5V") << 'V' << 5.0;
    QTest::newRow("milli unit, space before it") << QByteArray("500 mV") << 'V' << 0.5;
    QTest::newRow("microseconds") << QByteArray("2000us") << 'S' << 0.002;
    QTest::newRow("kilovolts") << QByteArray("0.01kv") << 'V' << 10.0;
    QTest::newRow("exponent and unit") << QByteArray("1e-3s") << 'S' << 0.001;
}

void TestScpiParser::numbers()
{
    QFETCH(QByteArray, token);
    QFETCH(char, unit);
    QFETCH(double, value);

    const std::optional<double> parsed = scpi::parseNumber(token, unit);
    QVERIFY(parsed.has_value());
    QCOMPARE(*parsed, value);
}

void TestScpiParser::badNumbers_data()
{
    QTest::addColumn<QByteArray>("token");
    QTest::addColumn<char>("unit");

    QTest::newRow("empty") << QByteArray("") << 'V';
    QTest::newRow("a word") << QByteArray("ON") << '\0';
    QTest::newRow("sign only") << QByteArray("-") << '\0';
    QTest::newRow("point only") << QByteArray(".") << '\0';
    QTest::newRow("unit where none is taken") << QByteArray("5V") << '\0';
    QTest::newRow("the wrong unit") << QByteArray("5A") << 'V';
    QTest::newRow("an unknown prefix") << QByteArray("5XV") << 'V';
    QTest::newRow("hexadecimal with a bad digit") << QByteArray("#HG1") << '\0';
    QTest::newRow("binary with a 2") << QByteArray("#B102") << '\0';
    QTest::newRow("unknown base") << QByteArray("#Z12") << '\0';
    QTest::newRow("NUL inside") << QByteArray("1\0002", 3) << '\0';
    QTest::newRow("very long") << QByteArray(100, '1') << '\0';
}

void TestScpiParser::badNumbers()
{
    QFETCH(QByteArray, token);
    QFETCH(char, unit);

    QVERIFY(!scpi::parseNumber(token, unit).has_value());
}

void TestScpiParser::headers_data()
{
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<bool>("matches");

    QTest::newRow("optional node given")
        << QByteArray("SYSTem:ERRor[:NEXT]") << QByteArray("Syst:Err:Next") << true;
    QTest::newRow("neither short nor long")
        << QByteArray("SYSTem:ERRor[:NEXT]") << QByteArray("SYSTE:ERR") << false;
    QTest::newRow("node missing") << QByteArray("SYSTem:ERRor[:NEXT]") << QByteArray("SYST")
                                  << false;
    QTest::newRow("extra node") << QByteArray("SYSTem:ERRor[:NEXT]")
                                << QByteArray("SYST:ERR:NEXT:NEXT") << false;
    QTest::newRow("both optionals given")
        << QByteArray("[SOURce]:VOLTage[:LEVel]") << QByteArray("SOUR:VOLT:LEV") << true;
    QTest::newRow("common command") << QByteArray("*IDN") << QByteArray("*idn") << true;
    QTest::newRow("numeric suffix is not a node")
        << QByteArray("OUTPut[:STATe]") << QByteArray("OUTP1") << false;
}

void TestScpiParser::headers()
{
    QFETCH(QByteArray, pattern);
    QFETCH(QByteArray, header);
    QFETCH(bool, matches);

    QCOMPARE(scpi::HeaderPattern(pattern.constData()).matches(header), matches);
}

void TestScpiParser::commands_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<bool>("query");
    QTest::addColumn<QList<QByteArray>>("parameters");

    QTest::newRow("parameters trimmed")
        << QByteArray("LIST:STEP 1, 5 ,\t1,0.5 ") << QByteArray("LIST:STEP") << false
        << QList<QByteArray>{"1", "5", "1", "0.5"};
    QTest::newRow("quoted comma stays") << QByteArray("INST \"a,b\"") << QByteArray("INST") << false
                                        << QList<QByteArray>{"\"a,b\""};
    QTest::newRow("carriage return")
        << QByteArray("OUTP ON\r") << QByteArray("OUTP") << false << QList<QByteArray>{"ON"};
}

void TestScpiParser::commands()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, header);
    QFETCH(bool, query);
    QFETCH(QList<QByteArray>, parameters);

    ScpiError error = ScpiError::None;
    const std::optional<ScpiCommand> command = scpi::parseCommand(text, &error);
    QVERIFY(command.has_value());
    QCOMPARE(command->header, header);
    QCOMPARE(command->query, query);
    QCOMPARE(command->parameters, parameters);
    QCOMPARE(error, ScpiError::None);
}

void TestScpiParser::badCommands_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("colon only") << QByteArray(":");
    QTest::newRow("query mark only") << QByteArray("?");
    QTest::newRow("query mark inside the header") << QByteArray("LIST?:COUN");
    QTest::newRow("trailing comma") << QByteArray("LIST:STEP 1,");
    QTest::newRow("open quote") << QByteArray("INST \"CH1");
    QTest::newRow("binary header") << QByteArray("\x01\xff\x7f");
    QTest::newRow("NUL in the header") << QByteArray("*ID\0N?", 6);
}

void TestScpiParser::badCommands()
{
    QFETCH(QByteArray, text);

    ScpiError error = ScpiError::None;
    QVERIFY(!scpi::parseCommand(text, &error).has_value());
    QCOMPARE(error, ScpiError::SyntaxError);
}

void TestScpiParser::semicolonsOutsideQuotesSplitCommands()
{
    const QList<QByteArray> commands = scpi::splitMessage(" *IDN? ;; INST \"a;b\";LIST:COUN?; ");
    QCOMPARE(commands, (QList<QByteArray>{"*IDN?", "INST \"a;b\"", "LIST:COUN?"}));
}

QTEST_APPLESS_MAIN(TestScpiParser)
#include "tst_scpiparser.moc"
