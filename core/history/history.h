// The history a face records into and searches: a local file, or a shared server behind it.
#pragma once

#include "historylocation.h"
#include "historystore.h"

#include <QStringList>

#include <memory>

namespace tarn::history {

// History opens the local file of a location, and for a server location the server as well.
// Records are always written to the local file first, one transaction each, so that a run is
// never lost to a server that went away; forward() sends the finished ones the server does not
// have yet, and is called again after every record until it succeeds. Searches go to the server
// when one is chosen. The local file is kept within the size limit, oldest runs first.
class History final
{
    Q_DECLARE_TR_FUNCTIONS(History)
    Q_DISABLE_COPY(History)

public:
    explicit History(const HistoryLocation &location);
    ~History();

    // False when the local file cannot be used; a server out of reach is not an error here.
    bool open();
    const HistoryLocation &location() const { return m_location; }
    QString error() const { return m_error; }
    // What the user should hear of: a file set aside, records waiting for the server.
    QStringList takeNotices();

    HistoryStore &local() { return m_local; }
    // Where searches go: the server when it was chosen and answers, the local file when no
    // server was chosen; nothing when the chosen server does not answer (error() says why).
    HistoryStore *reader();

    // The station each record names: the "history/station" setting, or the machine's name.
    QString station() const { return m_station; }
    void setSizeLimit(qint64 bytes) { m_sizeLimit = bytes; }

    // After a record is finished: sends what the server lacks, then keeps the file in its limit.
    // Returns how many finished records still wait for the server.
    int recordFinished();
    int forward();

private:
    bool connectServer();

    HistoryLocation m_location;
    HistoryStore m_local;
    std::unique_ptr<HistoryStore> m_server;
    QString m_station;
    qint64 m_sizeLimit;
    QString m_error;
    QStringList m_notices;
    bool m_serverWasAway = false;
};

} // namespace tarn::history
