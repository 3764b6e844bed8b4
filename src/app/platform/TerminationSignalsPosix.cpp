// SIGTERM, SIGHUP (as at logout) and SIGINT through a self-pipe: the handler only writes the
// signal's number, which the event loop reads.

#include "app/platform/TerminationSignals.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace velmora::app::platform {

namespace {

// [0] is read by the event loop, [1] written by the handler. Made once and kept for the life of
// the process, so that a signal arriving at any moment finds it.
int pipeEnds[2] = {-1, -1};

extern "C" void onTerminationSignal(int signal)
{
    const int saved = errno;
    const unsigned char number = static_cast<unsigned char>(signal);
    (void)!::write(pipeEnds[1], &number, 1);
    errno = saved;
}

} // namespace

int installTerminationHandlers()
{
    if (pipeEnds[0] < 0) {
        if (::pipe(pipeEnds) != 0)
            return -1;
        for (int fd : pipeEnds) {
            ::fcntl(fd, F_SETFD, FD_CLOEXEC);
            ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) | O_NONBLOCK);
        }
    }
    struct sigaction action = {};
    action.sa_handler = onTerminationSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int signal : {SIGTERM, SIGHUP, SIGINT})
        ::sigaction(signal, &action, nullptr);
    return pipeEnds[0];
}

std::vector<int> takeTerminationSignals()
{
    std::vector<int> arrived;
    unsigned char numbers[16];
    for (;;) {
        const ssize_t n = ::read(pipeEnds[0], numbers, sizeof numbers);
        if (n <= 0)
            break;
        arrived.insert(arrived.end(), numbers, numbers + n);
    }
    return arrived;
}

} // namespace velmora::app::platform
