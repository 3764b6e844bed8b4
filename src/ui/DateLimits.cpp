#include "ui/DateLimits.h"

#include <QDateEdit>

namespace velmora::ui {

void limitToStorableDates(QDateEdit* edit, model::TimeRange range)
{
    const model::CalendarDate first = model::firstDateThatFits(range);
    const model::CalendarDate last = model::lastDateThatFits(range);
    edit->setDateRange(QDate(first.year, first.month, first.day),
                       QDate(last.year, last.month, last.day));
}

} // namespace velmora::ui
