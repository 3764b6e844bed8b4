#pragma once

#include <QDate>

#include "model/FileDates.h"

class QDateEdit;

namespace velmora::ui {

// A calendar date as a date picker holds it, and back.
inline QDate toQDate(const model::CalendarDate& d)
{
    return QDate(d.year, d.month, d.day);
}
inline model::CalendarDate fromQDate(const QDate& d)
{
    return model::CalendarDate{d.year(), d.month(), d.day()};
}

// Keeps a date picker to the local dates whose whole day the files can hold (see
// model/FileDates.h): a date outside them cannot be typed or chosen, so that 12/31/1969 is never
// stored as a day of 2106. The picker is made wide enough to show any of them whole.
void limitToStorableDates(QDateEdit* edit, model::TimeRange range = model::TimeRange::UserFiles);

} // namespace velmora::ui
