#pragma once

#include <optional>

#include "model/Archive.h"

namespace velmora::model {

// The current time as the program reads it, in seconds since 1970-01-01 00:00 UTC. Everything
// that stamps or dates by "now" asks here, so that tests can fix the moment.
TimeT now();

// Fixes now() at a moment for as long as it lives (tests; one at a time, on one thread).
class FixedClock
{
public:
    explicit FixedClock(TimeT moment);
    ~FixedClock();
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;

private:
    std::optional<TimeT> m_previous;
};

} // namespace velmora::model
