#pragma once

#include "model/FileDates.h"

class QDateEdit;

namespace velmora::ui {

// Keeps a date picker to the local dates whose whole day the files can hold (see
// model/FileDates.h): a date outside them cannot be typed or chosen, so that 12/31/1969 is never
// stored as a day of 2106. The picker is made wide enough to show any of them whole.
void limitToStorableDates(QDateEdit* edit, model::TimeRange range = model::TimeRange::UserFiles);

} // namespace velmora::ui
