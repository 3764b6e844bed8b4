#include "ui/DateLimits.h"

#include <algorithm>

#include <QDateEdit>
#include <QFontMetrics>

namespace velmora::ui {

void limitToStorableDates(QDateEdit* edit, model::TimeRange range)
{
    const model::CalendarDate first = model::firstDateThatFits(range);
    const model::CalendarDate last = model::lastDateThatFits(range);
    const QDate from(first.year, first.month, first.day);
    const QDate to(last.year, last.month, last.day);
    edit->setDateRange(from, to);

    // A date picker is made as wide as its first and last dates; with a display format such as
    // M/d/yyyy those are narrower than most dates ("1/1/1970" against "12/28/2026"), which then
    // show cut off. Widen it by the difference.
    const QFontMetrics metrics(edit->font());
    const auto width = [&](const QDate& date) {
        return metrics.horizontalAdvance(edit->locale().toString(date, edit->displayFormat()));
    };
    const int missing = width(QDate(2088, 12, 28)) - std::max(width(from), width(to));
    if (missing > 0)
        edit->setMinimumWidth(edit->sizeHint().width() + missing);
}

} // namespace velmora::ui
