// Opens the installed programmer dialog, appends its default Sine and prints what a host sees.
#include <tarn2_specific/dialogprogrammer.h>
#include <tarn_core/algorithm.h>

#include <QApplication>
#include <QPushButton>
#include <QTableView>
#include <QTextStream>

using namespace tarn2::specific::orvo5000::programmer;

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("TarnConsumer"));
    Option option;
    option.name = QStringLiteral("consumer");
    option.timeDecimals = 3;
    option.timeMin = 0.001;
    option.timeMax = 1000;
    option.voltageDecimals = 3;
    option.currentDecimals = 3;
    option.maxCount = 100;
    option.channels = {Channel{QStringLiteral("CH1"), {{0, 30}, {0, 5}}}};
    DialogProgrammer dialog(option);
    dialog.findChild<QPushButton *>(QStringLiteral("btnListTemplateAppend"))->click();
    const int steps = dialog.findChild<QTableView *>(QStringLiteral("tvList"))->model()->rowCount();
    QTextStream(stdout) << "steps " << steps << " midpoint "
                        << tarn::core::algorithm::unnormalize(0.5, 0, 30) << '\n';
    return steps > 0 ? 0 : 1;
}
