#include "standardinput.h"

#include <qtcompat.h>

#include <QFile>

#include <csignal>
#include <cstdio>
#include <termios.h>
#include <unistd.h>

namespace {

termios terminalBefore;

void restoreTerminalAndEnd(int signal)
{
    tcsetattr(STDIN_FILENO, TCSANOW, &terminalBefore);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// Asks for a value if there is somebody to ask, and keeps what is typed unseen while this object lives. A program that
/// is interrupted meanwhile leaves the terminal as it was.
class SilentTerminal
{
public:
    SilentTerminal()
        : m_isTerminal(tcgetattr(STDIN_FILENO, &terminalBefore) == 0)
    {
        if (!m_isTerminal)
            return;
        handleSignals(restoreTerminalAndEnd);
        termios silent = terminalBefore;
        silent.c_lflag &= ~tcflag_t(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
        std::fputs(qPrintable(StandardInput::tr("Значение: ")), stderr);
    }
    ~SilentTerminal()
    {
        if (!m_isTerminal)
            return;
        std::fputs("\n", stderr);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &terminalBefore);
        handleSignals(SIG_DFL);
    }
    Q_DISABLE_COPY(SilentTerminal)

    bool isTerminal() const { return m_isTerminal; }

private:
    static void handleSignals(void (*handler)(int))
    {
        for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM})
            std::signal(signal, handler);
    }

    bool m_isTerminal;
};

void removeLineBreak(QByteArray &bytes)
{
    if (bytes.endsWith('\n'))
        bytes.chop(1);
    if (bytes.endsWith('\r'))
        bytes.chop(1);
}
} // namespace

std::optional<QString> StandardInput::readValue()
{
    const SilentTerminal terminal;
    QFile input;
    if (!input.open(STDIN_FILENO, QIODevice::ReadOnly))
        return {};
    QByteArray bytes = terminal.isTerminal() ? input.readLine(longest + 2) : input.read(longest + 1);
    if (input.error() != QFileDevice::NoError || bytes.size() > longest)
        return {};
    removeLineBreak(bytes);
    return qtcompat::fromUtf8(bytes);
}
