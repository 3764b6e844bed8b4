#include "DatabaseAssembler.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "NutrientOrder.h"
#include "UsdaGroups.h"

namespace velmora::foodsdb {

using model::FileError;
using model::FileErrorCode;
using model::NutrientDef;
using model::Result;

namespace {

// Rank among all nutrients: the builder's reading order first, then the data's own order.
long readingRank(const SourceNutrient& n)
{
    const int known = knownRank(n.number);
    return known >= 0 ? known : 1000L + n.sourceOrder;
}

std::string groupName(int code, const SourceData& data)
{
    if (const auto it = data.groupNames.find(code); it != data.groupNames.end())
        return it->second;
    if (code == OtherGroupNumber)
        return std::string(OtherGroupName);
    if (const std::string_view name = usdaGroupName(code); !name.empty())
        return std::string(name);
    char text[32];
    std::snprintf(text, sizeof text, "Food group %04d", code);
    return text;
}

} // namespace

std::string formatAmount(double amount)
{
    char text[32];
    const auto [end, ec] = std::to_chars(text, text + sizeof text, amount);
    return ec == std::errc() ? std::string(text, end) : std::string("?");
}

std::string measureDescription(const SourceMeasure& measure)
{
    if (measure.amount == 1.0)
        return measure.description;
    return formatAmount(measure.amount) + " " + measure.description;
}

std::vector<NutrientDef> chooseCatalogue(const SourceData& data,
                                         std::vector<SourceNutrient>* dropped)
{
    std::unordered_set<NutrientId> listed;
    for (const SourceFood& f : data.foods)
        for (const auto& [n, v] : f.values)
            listed.insert(n);

    std::vector<SourceNutrient> present;
    std::unordered_set<NutrientId> taken;
    for (const SourceNutrient& n : data.nutrients)
        if (listed.contains(n.number) && taken.insert(n.number).second)
            present.push_back(n);

    std::stable_sort(present.begin(), present.end(),
                     [](const auto& a, const auto& b) { return readingRank(a) < readingRank(b); });
    if (present.size() > static_cast<std::size_t>(model::StoredNutrientCount)) {
        if (dropped)
            dropped->assign(present.begin() + model::StoredNutrientCount, present.end());
        present.resize(model::StoredNutrientCount);
    } else if (dropped) {
        dropped->clear();
    }
    std::stable_sort(present.begin(), present.end(), [](const auto& a, const auto& b) {
        const auto ka = kindOf(a.number), kb = kindOf(b.number);
        return ka != kb ? ka < kb : readingRank(a) < readingRank(b);
    });

    std::vector<NutrientDef> entries;
    for (const SourceNutrient& n : present) {
        NutrientDef def;
        def.number = n.number;
        def.shortText = n.unit;
        const int known = knownRank(n.number);
        def.name = known >= 0 ? std::string(knownNutrients()[static_cast<std::size_t>(known)].name)
                              : n.name;
        if (!n.unit.empty())
            def.name += " (" + n.unit + ")";
        entries.push_back(std::move(def));
    }
    return entries;
}

Result<std::vector<std::pair<int, int>>> renumberFoods(std::vector<SourceFood>& foods)
{
    std::set<int> used;
    int highest = 0;
    std::vector<SourceFood*> high;
    for (SourceFood& f : foods) {
        used.insert(f.number);
        if (f.number < model::FirstUserDefinedNumber)
            highest = std::max(highest, f.number);
        else
            high.push_back(&f);
    }
    std::stable_sort(high.begin(), high.end(),
                     [](auto* a, auto* b) { return a->number < b->number; });

    std::vector<std::pair<int, int>> moved;
    int next = highest + 1;
    for (SourceFood* f : high) {
        while (used.contains(next))
            ++next;
        if (next >= model::FirstUserDefinedNumber)
            return FileError{FileErrorCode::BadValue,
                             {},
                             0,
                             "no free food number below 50000 is left for food " +
                                 std::to_string(f->number)};
        moved.emplace_back(f->number, next);
        used.insert(next);
        f->number = next++;
    }
    return moved;
}

Result<AssembledDatabase> assembleDatabase(SourceData data, const std::string& release)
{
    AssembledDatabase out;

    {
        std::unordered_set<int> numbers;
        for (const SourceFood& f : data.foods)
            if (!numbers.insert(f.number).second)
                return FileError{FileErrorCode::BadValue,
                                 {},
                                 0,
                                 "the food " + std::to_string(f.number) + " occurs twice"};
    }

    // Groups come from the data, else from the food's original number; data that carries no
    // groups at all (the packaged archive) has the rest placed by the words of their names.
    const bool carriesGroups = std::any_of(data.foods.begin(), data.foods.end(),
                                           [](const SourceFood& f) { return f.group != NoGroup; });
    for (SourceFood& f : data.foods)
        if (f.group == NoGroup)
            f.group = groupFromFoodNumber(f.number);
    if (!carriesGroups)
        out.placement = placeByName(data.foods);

    auto moved = renumberFoods(data.foods);
    if (!moved)
        return moved.error();
    out.renumbered = moved.take();
    std::stable_sort(data.foods.begin(), data.foods.end(),
                     [](const auto& a, const auto& b) { return a.number < b.number; });

    std::vector<NutrientDef> catalogue = chooseCatalogue(data, &out.droppedNutrients);
    std::unordered_map<NutrientId, std::size_t> position;
    for (std::size_t i = 0; i < catalogue.size(); ++i)
        position.emplace(catalogue[i].number, i);

    std::set<int> usedGroups;
    for (SourceFood& f : data.foods) {
        model::FoodItem item;
        item.number = f.number;
        item.group = f.group;
        item.name = std::move(f.name);
        for (const auto& [n, v] : f.values)
            if (const auto it = position.find(n); it != position.end())
                item.values[it->second] = static_cast<float>(v);
        for (const SourceMeasure& m : f.measures)
            item.measures.push_back(
                model::FoodMeasure{static_cast<float>(m.grams), measureDescription(m)});
        usedGroups.insert(f.group);
        out.database.addFood(std::move(item));
    }
    out.database.setCatalogue(std::move(catalogue));

    for (int code : usedGroups)
        out.database.addGroup(model::FoodGroup{code, groupName(code, data)});
    out.database.addGroup(model::FoodGroup{model::FoodDatabase::SourceGroupNumber, release});

    for (const SourceIntake& s : data.intakes) {
        model::IntakeRecord record;
        record.nutrient = s.number;
        record.recommended = s.recommended;
        for (int g = 0; g < model::LifeStageGroupCount; ++g)
            record.setUpperLimit(g, s.upperLimit[static_cast<std::size_t>(g)]);
        out.database.addIntake(std::move(record));
    }
    return out;
}

} // namespace velmora::foodsdb
