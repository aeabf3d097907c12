// Runs every figure and prints the table; exits non-zero when a figure misses its goal.
#include "figuretable.h"

#include <QApplication>
#include <QLocale>
#include <QSettings>
#include <QTemporaryDir>

int main(int argc, char **argv)
{
    // The dialogs read and write template settings; they must neither see nor touch the user's.
    QTemporaryDir settingsHome;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settingsHome.path()));
    QCoreApplication::setOrganizationName(QStringLiteral("TarnFigures"));
    QCoreApplication::setApplicationName(QStringLiteral("bench_figures"));
    QLocale::setDefault(QLocale::c());

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    QApplication app(argc, argv);
    figures::TableReporter table;
    benchmark::RunSpecifiedBenchmarks(&table);
    benchmark::Shutdown();
    return table.allGoalsMet() ? 0 : 3;
}
