#pragma once

#include <span>
#include <string>
#include <string_view>

namespace velmora::model {

class Store;

// The rules that edit the shared definitions, for every page and for velmora-cli. Names are
// Windows-1252 bytes; a definition's name is stored with blanks trimmed from both ends and its
// first letter upper-cased; updates find a definition by its exact stored name; new definitions
// take the next number of their counter.

// The name as it is stored; empty when only blanks were typed.
std::string definitionName(std::string_view typed);

// How many nutrients a custom food stores: the catalogue's file entries, at most 78.
int storedNutrientCount(const Store& store);
// Position of the first custom food of exactly this name, or -1.
int findCustomFoodByName(const Store& store, std::string_view name);
// Stores a custom food (values per serving, the serving's weight in grams) under the typed name:
// an existing custom food of exactly that stored name is overwritten, otherwise a new one takes
// the next custom-food number and is appended. values holds the nutrients in catalogue order;
// missing ones store 0. Returns the position in the custom-food list, or -1 when the name is
// empty (nothing is stored).
int storeCustomFood(Store& store, std::string_view typedName, float weight,
                    std::span<const float> values);
// Appends a new custom food even when the name is taken; returns its position, or -1 for an
// empty name.
int appendCustomFood(Store& store, std::string_view typedName, float weight,
                     std::span<const float> values);
// Removes the first custom food of exactly this name; false when there is none. Journal entries
// of it stay and count as nothing, as entries of unknown foods do.
bool deleteCustomFood(Store& store, std::string_view name);

} // namespace velmora::model
