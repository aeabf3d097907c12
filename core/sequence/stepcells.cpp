// The texts and values of step table cells.
#include "stepcells.h"

#include "helper.h"

namespace tarn2::specific::orvo5000::programmer::stepcells {

QString number(double value, int decimals)
{
    return QStringLiteral("%1").arg(value, 0, 'f', decimals, QLatin1Char(' '));
}

QVariant listCell(const ListData &step, int row, int column, int role)
{
    enum Column { No, Voltage, Current, Time };
    const Option &option = Helper::getInstance().option;
    switch (role) {
    case Qt::DisplayRole:
        switch (column) {
        case No:
            return row;
        case Voltage:
            return number(step.voltage, option.voltageDecimals);
        case Current:
            return number(step.current, option.currentDecimals);
        case Time:
            return number(step.time, option.timeDecimals);
        }
        break;
    case Qt::EditRole:
        switch (column) {
        case No:
            return row;
        case Voltage:
            return step.voltage;
        case Current:
            return step.current;
        case Time:
            return step.time;
        }
        break;
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignCenter);
    }
    return {};
}

QVariant header(const QStringList &headers, int section, Qt::Orientation orientation, int role)
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0
        || section >= headers.size())
        return {};
    return headers.at(section);
}

} // namespace tarn2::specific::orvo5000::programmer::stepcells
