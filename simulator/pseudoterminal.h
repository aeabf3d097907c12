// A pseudo-terminal under a name of the user's choosing, for a host to open as a serial port.
#pragma once

#include <QString>

namespace tarn::sim {

// PseudoTerminal opens a pseudo-terminal, makes it raw (no echo, no line editing, bytes as they
// are) and links `path` to its device. It keeps a descriptor of the device open itself, so that a
// host that closes the port and opens it again finds it as it left it rather than hung up.
// Gone with the object: the link, and the terminal once its master has been closed.
class PseudoTerminal
{
public:
    PseudoTerminal() = default;
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal &) = delete;
    PseudoTerminal &operator=(const PseudoTerminal &) = delete;

    bool open(const QString &path, QString *error);
    // The master side, handed to whoever serves it, who closes it.
    int takeMaster();
    QString device() const { return m_device; }

private:
    int m_master = -1;
    int m_keeper = -1;
    QString m_path;
    QString m_device;
};

} // namespace tarn::sim
