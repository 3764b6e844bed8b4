#pragma once

#include <QString>

#include <string>

#include "model/Nutrients.h"
#include "model/Store.h"
#include "model/TextCodec.h"

namespace velmora::ui {

// Texts of the store are Windows-1252 bytes; these are the only crossings into and out of Qt.
inline QString toQt(const std::string& cp1252)
{
    return QString::fromStdString(model::cp1252ToUtf8(cp1252));
}
inline std::string fromQt(const QString& text)
{
    return model::utf8ToCp1252(text.toStdString());
}

// A nutrient's name from the catalogue, or "Nutrient N" when it has none.
inline QString nutrientName(const model::Store& store, model::NutrientId n)
{
    const std::string name = store.foods.catalogue().nameOf(n);
    if (name.empty())
        return QStringLiteral("Nutrient %1").arg(n);
    return toQt(name);
}

} // namespace velmora::ui
