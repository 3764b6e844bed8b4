#pragma once

#include <vector>

// The signals that end a program from outside, as the operating system delivers them. One source
// file per system implements this (TerminationSignalsPosix.cpp, TerminationSignalsWindows.cpp).
namespace velmora::app::platform {

// Installs the handlers once and returns a descriptor that becomes readable when a signal has
// arrived, for a QSocketNotifier; -1 when the system has no such signals.
int installTerminationHandlers();

// The signals that arrived since the last call, without waiting.
std::vector<int> takeTerminationSignals();

} // namespace velmora::app::platform
