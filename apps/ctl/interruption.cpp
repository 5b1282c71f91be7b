#include "interruption.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int signalNumbers[] = {SIGINT, SIGTERM};

volatile std::sig_atomic_t wasRequested;
int pipeEnds[2]; // wakes the event loop, which no signal handler may call

void request(int)
{
    wasRequested = 1;
    [[maybe_unused]] const ssize_t written = write(pipeEnds[1], "", 1);
}
} // namespace

Interruption::Interruption()
{
    wasRequested = 0;
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals end the program then
    auto *notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        Q_EMIT requested();
    });
    struct sigaction action = {};
    action.sa_handler = request;
    action.sa_flags = int(SA_RESETHAND | SA_RESTART);
    for (const int number : signalNumbers)
        sigaction(number, &action, nullptr);
}

Interruption::~Interruption()
{
    for (const int number : signalNumbers)
        std::signal(number, SIG_DFL);
    for (const int end : pipeEnds)
        close(end);
}

bool Interruption::isRequested() const
{
    return wasRequested != 0;
}
