#pragma once

#include <QString>

#include <string>

#include "model/TextCodec.h"

namespace velmora::food {

// Texts of the store are Windows-1252 bytes; these are the crossings into and out of Qt.
inline QString toQt(const std::string& cp1252)
{
    return QString::fromStdString(model::cp1252ToUtf8(cp1252));
}
inline std::string fromQt(const QString& text)
{
    return model::utf8ToCp1252(text.toStdString());
}

} // namespace velmora::food
