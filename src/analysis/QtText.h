#pragma once

#include <QString>

#include <string>

#include "model/TextCodec.h"

namespace velmora::analysis {

// Names in the store are Windows-1252 bytes; the logic's own texts are UTF-8.
inline QString fromStore(const std::string& cp1252)
{
    return QString::fromStdString(model::cp1252ToUtf8(cp1252));
}
inline QString fromUtf8(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}
inline QString fromUtf8(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace velmora::analysis
