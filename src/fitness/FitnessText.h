#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include <string>

#include "model/DateText.h"
#include "model/TextCodec.h"

namespace velmora::fitness {

// Texts of the store are Windows-1252 bytes, the logic's display texts UTF-8; these are the
// crossings into and out of Qt.
inline QString fromRecord(const std::string& cp1252)
{
    return QString::fromStdString(model::cp1252ToUtf8(cp1252));
}
inline std::string toRecord(const QString& text)
{
    return model::utf8ToCp1252(text.toStdString());
}
inline QString fromUtf8(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

inline QDate toQDate(const model::CalendarDate& d)
{
    return QDate(d.year, d.month, d.day);
}
inline model::CalendarDate fromQDate(const QDate& d)
{
    return {d.year(), d.month(), d.day()};
}

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
