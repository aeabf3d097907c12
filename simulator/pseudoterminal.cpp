// Opening the pseudo-terminal the simulated supply serves in place of a serial line.
#include "pseudoterminal.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace tarn::sim {

PseudoTerminal::~PseudoTerminal()
{
    if (m_master >= 0)
        ::close(m_master);
    if (m_keeper >= 0)
        ::close(m_keeper);
    if (!m_path.isEmpty())
        QFile::remove(m_path);
}

bool PseudoTerminal::open(const QString &path, QString *error)
{
    auto failed = [error](const QString &what) {
        *error = QStringLiteral("%1: %2").arg(what, QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    };
    m_master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (m_master < 0 || ::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0)
        return failed(QStringLiteral("cannot open a pseudo-terminal"));
    char name[128] = {};
    if (::ptsname_r(m_master, name, sizeof name) != 0)
        return failed(QStringLiteral("cannot name the pseudo-terminal"));
    m_device = QString::fromLocal8Bit(name);
    m_keeper = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios raw{};
    if (m_keeper < 0 || ::tcgetattr(m_keeper, &raw) != 0)
        return failed(QStringLiteral("cannot open %1").arg(m_device));
    ::cfmakeraw(&raw);
    if (::tcsetattr(m_keeper, TCSANOW, &raw) != 0)
        return failed(QStringLiteral("cannot make %1 raw").arg(m_device));
    // Only a link left behind by an earlier run is replaced, never a file.
    if (QFileInfo(path).isSymLink())
        QFile::remove(path);
    if (!QFile::link(m_device, path)) {
        *error = QStringLiteral("cannot link %1 to %2").arg(path, m_device);
        return false;
    }
    m_path = path;
    return true;
}

int PseudoTerminal::takeMaster()
{
    const int master = m_master;
    m_master = -1;
    return master;
}

} // namespace tarn::sim
