// Signals that end the program, turned into a Qt signal through a self-pipe.

#include "app/ShutdownSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#if defined(Q_OS_UNIX)
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace velmora::app {

namespace {

ShutdownSignals* theInstance = nullptr;

#if defined(Q_OS_UNIX)
// [0] is read by the event loop, [1] written by the handler. Made once and kept for the life of
// the process, so that a signal arriving at any moment finds it.
int pipeEnds[2] = {-1, -1};

extern "C" void onShutdownSignal(int signal)
{
    const int saved = errno;
    const unsigned char number = static_cast<unsigned char>(signal);
    (void)!::write(pipeEnds[1], &number, 1);
    errno = saved;
}

bool installHandlers()
{
    if (pipeEnds[0] < 0) {
        if (::pipe(pipeEnds) != 0)
            return false;
        for (int fd : pipeEnds) {
            ::fcntl(fd, F_SETFD, FD_CLOEXEC);
            ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) | O_NONBLOCK);
        }
    }
    struct sigaction action = {};
    action.sa_handler = onShutdownSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int signal : {SIGTERM, SIGHUP, SIGINT})
        ::sigaction(signal, &action, nullptr);
    return true;
}
#endif

} // namespace

ShutdownSignals& ShutdownSignals::instance()
{
    if (!theInstance)
        theInstance = new ShutdownSignals(QCoreApplication::instance());
    return *theInstance;
}

ShutdownSignals::ShutdownSignals(QObject* parent) : QObject(parent)
{
#if defined(Q_OS_UNIX)
    if (installHandlers()) {
        m_notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
        connect(m_notifier, &QSocketNotifier::activated, this, &ShutdownSignals::readPipe);
    }
#endif
}

ShutdownSignals::~ShutdownSignals()
{
    theInstance = nullptr;
}

void ShutdownSignals::readPipe()
{
#if defined(Q_OS_UNIX)
    unsigned char numbers[16];
    for (;;) {
        const ssize_t n = ::read(pipeEnds[0], numbers, sizeof numbers);
        if (n <= 0)
            break;
        for (ssize_t i = 0; i < n; ++i)
            emit received(numbers[i]);
    }
#endif
}

} // namespace velmora::app
