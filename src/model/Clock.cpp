#include "model/Clock.h"

#include <ctime>

namespace velmora::model {

namespace {
std::optional<TimeT> fixedMoment;
} // namespace

TimeT now()
{
    return fixedMoment ? *fixedMoment : static_cast<TimeT>(std::time(nullptr));
}

FixedClock::FixedClock(TimeT moment) : m_previous(fixedMoment)
{
    fixedMoment = moment;
}

FixedClock::~FixedClock()
{
    fixedMoment = m_previous;
}

} // namespace velmora::model
