// A windowed program on Windows receives no termination signals: the end of the session reaches
// it as the session manager's commit request, which the application handles like closing the main
// window.

#include "app/platform/TerminationSignals.h"

namespace velmora::app::platform {

int installTerminationHandlers()
{
    return -1;
}

std::vector<int> takeTerminationSignals()
{
    return {};
}

} // namespace velmora::app::platform
