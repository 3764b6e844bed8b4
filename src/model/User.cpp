#include "model/User.h"

#include <algorithm>
#include <bit>

#include "model/FoodDatabase.h"

namespace velmora::model {

namespace {

// A float held in a signed 32-bit slot of the record: its four bytes as they are.
float floatSlot(ArchiveReader& in)
{
    return in.f32();
}

template <std::size_t N> void readInts(ArchiveReader& in, std::array<std::int32_t, N>& a)
{
    for (auto& v : a)
        v = in.i32();
}

template <std::size_t N> void writeInts(ArchiveWriter& out, const std::array<std::int32_t, N>& a)
{
    for (auto v : a)
        out.i32(v);
}

} // namespace

void User::read(ArchiveReader& in)
{
    version = in.i32();

    gender = in.u8();
    activityLevel = in.u8();
    weight = floatSlot(in);
    lifeStageVariable = in.u8();
    age = floatSlot(in);
    changeWeight = in.u8();

    height = in.i32();
    planStartWeight = floatSlot(in);
    planEndWeight = floatSlot(in);
    planStart = in.time();
    planEnd = in.time();
    dailyChange = floatSlot(in);

    for (auto& g : bodyGoals)
        g = floatSlot(in);

    const std::size_t nutrients = in.count(4);
    goalNutrients.clear();
    goalNutrients.reserve(nutrients);
    for (std::size_t i = 0; i < nutrients; ++i)
        goalNutrients.push_back(in.i32());

    alwaysShowYear = in.i32();
    lifeStageGroup = in.i32();
    raw6c = in.i32();
    colour1 = in.i32();
    colour2 = in.i32();
    recentFoodsCount = in.i32();
    metric = in.i32();
    daysInLists = in.i32();
    pie1Mode = in.i32();
    pie2Mode = in.i32();
    foodListMode = in.i32();

    const std::size_t values = in.count(4);
    goalValues.clear();
    goalValues.reserve(values);
    for (std::size_t i = 0; i < values; ++i)
        goalValues.push_back(floatSlot(in));

    readInts(in, listColumns);
    readInts(in, listColumnWidths);
    readInts(in, detailsSlots);
    readInts(in, fitnessColumns);
    readInts(in, fitnessColumnWidths);
    readInts(in, recentFoods);

    if (version > 129)
        trailing = in.i32();
}

void User::write(ArchiveWriter& out) const
{
    out.i32(CurrentFormatVersion);

    out.u8(gender);
    out.u8(activityLevel);
    out.f32(weight);
    out.u8(lifeStageVariable);
    out.f32(age);
    out.u8(changeWeight);

    out.i32(height);
    out.f32(planStartWeight);
    out.f32(planEndWeight);
    out.time(planStart);
    out.time(planEnd);
    out.f32(dailyChange);

    for (float g : bodyGoals)
        out.f32(g);

    out.count(goalNutrients.size());
    for (NutrientId n : goalNutrients)
        out.i32(n);

    const std::int32_t settings[] = {alwaysShowYear, lifeStageGroup,   raw6c,       colour1,
                                     colour2,        recentFoodsCount, metric,      daysInLists,
                                     pie1Mode,       pie2Mode,         foodListMode};
    for (std::int32_t s : settings)
        out.i32(s);

    out.count(goalValues.size());
    for (float v : goalValues)
        out.f32(v);

    writeInts(out, listColumns);
    writeInts(out, listColumnWidths);
    writeInts(out, detailsSlots);
    writeInts(out, fitnessColumns);
    writeInts(out, fitnessColumnWidths);
    writeInts(out, recentFoods);

    out.i32(trailing);
}

std::vector<NutrientId> User::detailsList() const
{
    std::vector<NutrientId> out;
    for (NutrientId n : detailsSlots) {
        if (n == -1)
            break;
        out.push_back(n);
    }
    return out;
}

void User::setDetailsList(const std::vector<NutrientId>& ids)
{
    detailsSlots.fill(-1);
    const std::size_t n = std::min(ids.size(), DetailsSlotCount);
    std::copy_n(ids.begin(), n, detailsSlots.begin());
}

std::vector<std::int32_t> User::recentFoodList() const
{
    std::vector<std::int32_t> out;
    for (std::int32_t f : recentFoods) {
        if (f == -1)
            break;
        out.push_back(f);
    }
    return out;
}

void User::noteRecentFood(std::int32_t food)
{
    std::vector<std::int32_t> list = recentFoodList();
    list.erase(std::remove(list.begin(), list.end(), food), list.end());
    list.insert(list.begin(), food);
    recentFoods.fill(-1);
    const std::size_t n = std::min(list.size(), RecentFoodSlotCount);
    std::copy_n(list.begin(), n, recentFoods.begin());
}

std::vector<NutrientId> defaultGoalNutrients(const FoodDatabase& foods)
{
    if (foods.empty())
        return {};
    std::vector<NutrientId> goals{
        nutrient::Energy, nutrient::Protein,    nutrient::Carbohydrate, nutrient::Fat,
        nutrient::Fibre,  nutrient::PercentFat, nutrient::PercentCarb,  nutrient::PercentProtein};
    for (const IntakeRecord& r : foods.intakes()) {
        if (foods.catalogue().indexOf(r.nutrient) < 0)
            continue;
        if (std::find(goals.begin(), goals.end(), r.nutrient) == goals.end())
            goals.push_back(r.nutrient);
    }
    return goals;
}

} // namespace velmora::model
