#pragma once

#include <QByteArray>
#include <QString>

#include <fcntl.h>
#include <pty.h>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>

/// A terminal in front of a program, of which the test holds the other end.
class Terminal
{
public:
    Terminal()
    {
        m_isThere = openpty(&m_near, &m_far, nullptr, nullptr, nullptr) == 0;
        if (m_isThere)
            fcntl(m_near, F_SETFL, O_NONBLOCK);
    }
    /// False where a container has no pseudo terminals.
    bool isThere() const { return m_isThere; }
    ~Terminal()
    {
        close(m_near);
        close(m_far);
    }
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;

    QString name() const { return QString::fromLocal8Bit(ttyname(m_far)); }
    bool showsLetters() const
    {
        termios state;
        return tcgetattr(m_far, &state) == 0 && (state.c_lflag & tcflag_t(ECHO)) != 0;
    }
    void type(const QByteArray &keys) const
    {
        if (::write(m_near, keys.constData(), size_t(keys.size())) != keys.size())
            throw std::runtime_error("the terminal takes nothing");
    }
    /// All that was written on it so far.
    QString screen()
    {
        char bytes[4096];
        for (ssize_t size = read(m_near, bytes, sizeof bytes); size > 0; size = read(m_near, bytes, sizeof bytes))
            m_written.append(bytes, int(size));
        return QString::fromUtf8(m_written);
    }

private:
    int m_near = -1;
    int m_far = -1;
    bool m_isThere = false;
    QByteArray m_written;
};
