// Reading instrument addresses.
#include "linkfactory.h"

#include "seriallink.h"
#include "simlink.h"
#include "tcplink.h"

#include <instrumentdescription.h>

#include <QUrl>
#include <QUrlQuery>

namespace tarn::host {

std::unique_ptr<InstrumentLink>
createLink(const QString &address, const sim::InstrumentDescription &description, QString *error)
{
    const QString text = address.trimmed();
    auto refuse = [error](const QString &why) {
        *error = why;
        return std::unique_ptr<InstrumentLink>();
    };
    if (text.startsWith(QLatin1String("tcp://"))) {
        const QUrl url(text, QUrl::StrictMode);
        if (!url.isValid() || url.host().isEmpty() || !url.path().isEmpty())
            return refuse(
                QObject::tr("%1 is not an address of the form tcp://HOST[:PORT]").arg(text));
        const int port = url.port(TcpLink::defaultPort);
        if (port <= 0 || port > 65535)
            return refuse(QObject::tr("%1 has no usable port").arg(text));
        return std::make_unique<TcpLink>(url.host(), static_cast<quint16>(port));
    }
    if (text.startsWith(QLatin1String("serial:"))) {
        const QString rest = text.mid(7);
        const int question = rest.indexOf(QLatin1Char('?'));
        const QString device = rest.left(question);
        int baud = SerialLink::defaultBaud;
        if (question >= 0) {
            const QUrlQuery query(rest.mid(question + 1));
            bool ok = false;
            baud = query.queryItemValue(QStringLiteral("baud")).toInt(&ok);
            if (!ok || baud <= 0 || query.queryItems().size() != 1)
                return refuse(QObject::tr("%1: the only option is ?baud=N").arg(text));
        }
        if (device.isEmpty())
            return refuse(QObject::tr("%1 names no serial device").arg(text));
        return std::make_unique<SerialLink>(device, baud);
    }
    if (text.startsWith(QLatin1String("sim:"))) {
        double speed = 1.0;
        const QString rest = text.mid(4);
        if (!rest.isEmpty()) {
            const QUrlQuery query(rest.startsWith(QLatin1Char('?')) ? rest.mid(1) : rest);
            bool ok = false;
            speed = query.queryItemValue(QStringLiteral("speed")).toDouble(&ok);
            if (!ok || !(speed > 0.0) || query.queryItems().size() != 1)
                return refuse(QObject::tr("%1: the only option is ?speed=F").arg(text));
        }
        return std::make_unique<SimLink>(description, speed);
    }
    return refuse(QObject::tr("%1 is not an instrument address: use tcp://HOST[:PORT], "
                              "serial:DEVICE[?baud=N] or sim:")
                      .arg(text));
}

} // namespace tarn::host
