#include "fitness/logic/Definitions.h"

#include <algorithm>

#include "model/UserNames.h"

namespace velmora::fitness {

std::optional<std::string> definitionName(std::string_view typed)
{
    std::string name = model::trimBlanks(typed);
    if (name.empty())
        return std::nullopt;
    return model::capitaliseFirst(std::move(name));
}

std::optional<std::vector<std::int32_t>> exerciseFieldsAfterStore(const model::Exercise* existing,
                                                                  const std::vector<FieldRow>& rows)
{
    const auto contains = [](const std::vector<std::int32_t>& list, std::int32_t id) {
        return std::find(list.begin(), list.end(), id) != list.end();
    };
    std::vector<std::int32_t> fields;
    if (existing) {
        for (std::int32_t id : existing->fields) {
            const auto row = std::find_if(rows.begin(), rows.end(),
                                          [id](const FieldRow& r) { return r.field == id; });
            if (row == rows.end() || row->checked)
                fields.push_back(id);
        }
    }
    for (const FieldRow& row : rows)
        if (row.checked && !contains(fields, row.field))
            fields.push_back(row.field);
    if (!existing && fields.empty())
        return std::nullopt;
    return fields;
}

} // namespace velmora::fitness
