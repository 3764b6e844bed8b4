#pragma once

#include <QString>
#include <QTime>

#include "model/DateText.h"
#include "ui/DateLimits.h"
#include "ui/QtText.h"

namespace velmora::fitness {

// Dates cross into and out of the date pickers through ui/DateLimits.h, stored texts through
// ui/QtText.h.
using ui::fromQDate;
using ui::toQDate;

// The display formats of the date and time pickers: day first and 24 hours when metric.
inline QString dateFormat(bool metric)
{
    return metric ? QStringLiteral("d/M/yyyy") : QStringLiteral("M/d/yyyy");
}
inline QString timeFormat(bool metric)
{
    return metric ? QStringLiteral("H:mm") : QStringLiteral("h:mm AP");
}

} // namespace velmora::fitness
