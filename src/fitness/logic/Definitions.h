#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Journal.h"

namespace velmora::fitness {

// Names of exercises, routines and variables as the definition dialogs store them: blanks trimmed
// from both ends and the first letter upper-cased (Windows-1252 bytes, so "bench curl" becomes
// "Bench curl"). Nothing for a name of only blanks, which stores nothing.
std::optional<std::string> definitionName(std::string_view typed);

// The position of the definition with exactly that name (case-sensitive, first match), which a
// store updates; nothing when the store makes a new definition.
template <typename Definition>
std::optional<std::size_t> definitionNamed(const std::vector<Definition>& list,
                                           const std::string& name)
{
    for (std::size_t i = 0; i < list.size(); ++i)
        if (list[i].name == name)
            return i;
    return std::nullopt;
}

// One row of the field list of "Define Exercises".
struct FieldRow
{
    std::int32_t field = 0;
    bool checked = false;
};

// The field list that storing "Define Exercises" gives an exercise. An existing exercise keeps its
// order: unchecked fields leave it and checked fields it lacks are appended in row order. A new
// exercise (existing == nullptr) takes the checked fields in row order, and is not made at all
// when no row is checked: then the result is nothing.
std::optional<std::vector<std::int32_t>>
exerciseFieldsAfterStore(const model::Exercise* existing, const std::vector<FieldRow>& rows);

} // namespace velmora::fitness
