#include "fitness/logic/UserVariables.h"

#include "model/DateText.h"
#include "model/FoodDatabase.h"
#include "model/TextCodec.h"

namespace velmora::fitness {

std::vector<VariableRow> variableRows(const std::vector<model::UserVariable>& definitions,
                                      const model::HealthEntry& entry, bool metric)
{
    std::vector<VariableRow> rows;
    rows.reserve(entry.variables.size());
    for (std::size_t i = 0; i < entry.variables.size(); ++i) {
        const model::VariableUse& use = entry.variables[i];
        const model::UserVariable* definition = nullptr;
        for (const model::UserVariable& d : definitions) {
            if (d.id == use.variable) {
                definition = &d;
                break;
            }
        }
        VariableRow row;
        if (definition)
            row.name = model::cp1252ToUtf8(definition->name);
        row.number = variableNumberText(use.number);
        row.text = model::cp1252ToUtf8(use.text);
        if (definition && definition->askTime != 0)
            row.time = model::timeText(use.time, metric);
        row.itemData = VariableItemDataBase + static_cast<int>(i);
        rows.push_back(std::move(row));
    }
    return rows;
}

std::string variableNumberText(float number)
{
    if (number == 0.0f)
        return {};
    return model::formatText("%.5g", static_cast<double>(number));
}

std::optional<std::size_t> usePosition(int itemData, const model::HealthEntry& entry)
{
    if (itemData < VariableItemDataBase)
        return std::nullopt;
    const auto position = static_cast<std::size_t>(itemData - VariableItemDataBase);
    if (position >= entry.variables.size())
        return std::nullopt;
    return position;
}

model::AskedParts askedParts(const model::UserVariable& definition)
{
    return {definition.askNumber != 0, definition.askText != 0, definition.askTime != 0};
}

bool asksEachTime(const model::UserVariable& definition)
{
    const model::AskedParts asked = askedParts(definition);
    return asked.number || asked.text || asked.time;
}

model::VariableUse lockedUse(const model::UserVariable& definition)
{
    model::VariableUse use;
    use.variable = definition.id;
    use.number = definition.number;
    use.text = definition.text;
    use.time = definition.time;
    return use;
}

model::VariableUse useFromDialog(const model::UserVariable& definition, float number,
                                 const std::string& text, model::TimeT time)
{
    const model::AskedParts asked = askedParts(definition);
    model::VariableUse use = lockedUse(definition);
    if (asked.number)
        use.number = number;
    if (asked.text)
        use.text = text;
    if (asked.time)
        use.time = time;
    return use;
}

model::VariableForm variableForm(const model::UserVariable* definition, model::TimeT now)
{
    model::VariableForm form;
    form.time = now;
    if (!definition)
        return form;
    form.number = definition->number;
    form.text = definition->text;
    form.time = definition->time;
    form.ask = askedParts(*definition);
    return form;
}

void setAskNumber(model::VariableForm& form, bool ask)
{
    form.ask.number = ask;
    if (ask)
        form.number = 0.0f;
}

void setAskText(model::VariableForm& form, bool ask)
{
    form.ask.text = ask;
    if (ask)
        form.text.clear();
}

VariableFormEnabling variableFormEnabling(const model::VariableForm& form, bool enteringNew)
{
    return {enteringNew, !form.ask.number, !form.ask.text, !form.ask.time};
}

} // namespace velmora::fitness
