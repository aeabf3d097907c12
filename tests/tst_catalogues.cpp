// Tests of the translation catalogues: every message translated, none left over from texts the
// code no longer has, none missing for texts it has, and every placeholder carried across.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

// The placeholders %1..%99 a text uses, in order of number and without repeats.
QStringList placeholders(const QString &text)
{
    static const QRegularExpression marker(QStringLiteral("%(\\d{1,2})"));
    QStringList found;
    auto it = marker.globalMatch(text);
    while (it.hasNext()) {
        const QString one = it.next().captured(0);
        if (!found.contains(one))
            found.append(one);
    }
    found.sort();
    return found;
}

// Reads a .ts catalogue and lists what keeps it from being complete, one line per message.
QStringList check(const QByteArray &xml)
{
    QStringList problems;
    QXmlStreamReader reader(xml);
    QString context;
    QString source;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("name")) {
            context = reader.readElementText();
        } else if (reader.name() == QLatin1String("source")) {
            source = reader.readElementText();
        } else if (reader.name() == QLatin1String("translation")) {
            const QString type = reader.attributes().value(QLatin1String("type")).toString();
            const QString text = reader.readElementText(QXmlStreamReader::IncludeChildElements);
            const QString where = context + QStringLiteral(": \"") + source + QStringLiteral("\"");
            if (!type.isEmpty())
                problems.append(where + QStringLiteral(" is ") + type);
            else if (text.isEmpty())
                problems.append(where + QStringLiteral(" has no translation"));
            else if (placeholders(text) != placeholders(source))
                problems.append(where + QStringLiteral(" loses or adds a placeholder"));
        }
    }
    if (reader.hasError())
        problems.append(QStringLiteral("not XML: ") + reader.errorString());
    return problems;
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The folders and files each catalogue is refreshed from, as the build lists them.
QStringList sourcesOf(const QString &base)
{
    return (base == QLatin1String("tarn_programmer") ? QStringLiteral(TARN_MODULE_SOURCES)
                                                     : QStringLiteral(TARN_HOST_SOURCES))
        .split(QLatin1Char('|'));
}

} // namespace

class TestCatalogues : public QObject
{
    Q_OBJECT

private slots:
    void catalogueHoldsEveryTextOfTheSources_data();
    void catalogueHoldsEveryTextOfTheSources();
};

void TestCatalogues::catalogueHoldsEveryTextOfTheSources_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("language");
    // The English catalogue holds only the texts counted with %n, to give them their singular.
    QTest::addColumn<bool>("pluralsOnly");
    for (const char *base : {"tarn_programmer", "tarn_bench_host"}) {
        for (const char *language : {"de", "zh_CN"}) {
            QTest::addRow("%s_%s", base, language)
                << QString::fromLatin1(base) << QString::fromLatin1(language) << false;
        }
    }
    QTest::newRow("tarn_bench_host_en") << "tarn_bench_host"
                                        << "en" << true;
}

// The catalogue is checked as lupdate refreshes it from the sources. A text added to the code
// without refreshing the catalogues (the lupdate target) shows here as unfinished, one removed from
// it as vanished; what the catalogue itself lacks (an empty translation, a lost placeholder, the
// messages of a file cut short) comes through the refresh as it was.
void TestCatalogues::catalogueHoldsEveryTextOfTheSources()
{
    QFETCH(QString, base);
    QFETCH(QString, language);
    QFETCH(bool, pluralsOnly);

    QTemporaryDir scratch;
    QVERIFY(scratch.isValid());
    const QString copy
        = scratch.filePath(base + QLatin1Char('_') + language + QStringLiteral(".ts"));
    QVERIFY(
        QFile::copy(QStringLiteral(TARN_TRANSLATIONS_DIR "/%1_%2.ts").arg(base, language), copy));
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);

    QStringList arguments{
        QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none")};
    arguments << sourcesOf(base) << QStringLiteral("-ts") << copy;
    if (pluralsOnly)
        arguments.prepend(QStringLiteral("-pluralonly"));
    QProcess lupdate;
    lupdate.start(QStringLiteral(TARN_LUPDATE), arguments);
    QVERIFY(lupdate.waitForFinished(60000));
    QCOMPARE(lupdate.exitCode(), 0);

    const QStringList problems = check(read(copy));
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
}

QTEST_APPLESS_MAIN(TestCatalogues)
#include "tst_catalogues.moc"
