#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/FitnessDefinitionEdits.h"
#include "model/Journal.h"

namespace velmora::fitness {

// User variables: definitions that fix a number, a text and a time or ask for them each time the
// variable is used, and the uses of them in a day's health entry. Texts of records are
// Windows-1252 bytes; the rows below are UTF-8 for display.

// The health page's variables list: one row per use, in the entry's order.
inline constexpr int VariableItemDataBase = 1000; // a row's item data is its position + 1000

struct VariableRow
{
    std::string name;   // the definition's name; empty when the definition no longer exists
    std::string number; // "%.5g", blank for 0
    std::string text;
    std::string time; // the time text, only when the definition asks for the time each time
    int itemData = VariableItemDataBase;
};

std::vector<VariableRow> variableRows(const std::vector<model::UserVariable>& definitions,
                                      const model::HealthEntry& entry, bool metric);

// "%.5g", or an empty text for 0.
std::string variableNumberText(float number);

// The position in the entry's list of a row's item data, or nothing when it names no use.
std::optional<std::size_t> usePosition(int itemData, const model::HealthEntry& entry);

// True when any of the number, text and time is asked each time: adding the variable then opens
// "Use Variable"; otherwise the use is added at once with the locked values (lockedUse).
bool asksEachTime(const model::UserVariable& definition);
model::VariableUse lockedUse(const model::UserVariable& definition);

// "Use Variable": which controls take input (the parts asked each time), and the use that "OK"
// gives: the asked parts from the dialog, the others locked.
model::AskedParts askedParts(const model::UserVariable& definition);
model::VariableUse useFromDialog(const model::UserVariable& definition, float number,
                                 const std::string& text, model::TimeT time);

// The form for a definition, or, with none chosen, everything asked each time, number 0, no text
// and the time now.
model::VariableForm variableForm(const model::UserVariable* definition, model::TimeT now);

// Checking "Edit every time" for the number sets the number to 0; for the text, empties the text.
void setAskNumber(model::VariableForm& form, bool ask);
void setAskText(model::VariableForm& form, bool ask);

// Which controls of "Add/Define Variable" are enabled: the name only while a new variable is being
// entered; each value control only while its part is locked (not asked each time).
struct VariableFormEnabling
{
    bool name = false;
    bool number = false;
    bool text = false;
    bool time = false;
};
VariableFormEnabling variableFormEnabling(const model::VariableForm& form, bool enteringNew);

} // namespace velmora::fitness
