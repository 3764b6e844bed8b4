#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "model/Archive.h"
#include "model/Nutrients.h"

namespace velmora::model {

inline constexpr std::int32_t CurrentFormatVersion = 131;

// The current user's profile and settings record, serialised at the head of the user's file.
//
// Slot map. The record's shape is fixed by the file; this is the one place that says what each
// slot means. Values that the program holds as 32-bit floats occupy their slot as the float's four
// bytes; everything else is a signed 32-bit integer unless a byte is named. Slots with no meaning
// in this program are kept raw and written back as read.
//
//  Group 1   version (i32): 131 when written; the trailing group 12 exists only above 129.
//  Group 2   diet profile
//            u8  gender                 0 Male, 1 Female
//            u8  activityLevel          0 Sedentary .. 3 Elite athlete (diet goals; activity estimate)
//            f32 weight                 pounds, or kilograms when metric (diet goals; activity estimate)
//            u8  lifeStageVariable      0 None, 1..3 pregnant trimester, 4..5 lactation
//            f32 age                    years, fractional for infants
//            u8  changeWeight           1 = "I wish to change my weight"
//  Group 3   diet plan
//            i32 height                 whole inches, or centimetres when metric
//            f32 planStartWeight        in the user's unit
//            f32 planEndWeight
//            time planStart, planEnd    the plan's dates
//            f32 dailyChange            kcal per day, signed
//  Group 4   f32 x 10 bodyGoals         neck, shoulders, chest, stomach, waist, hips, biceps,
//                                       forearms, thighs, calves; inches or centimetres
//  Group 5   count + i32 goalNutrients  the goal list (NutrientIds, in order)
//  Group 6   eleven i32 settings
//            (a) alwaysShowYear     date texts always carry the year
//            (b) lifeStageGroup     0..21, computed by the diet goals on OK, indexes the intake table
//            (c) raw6c              kept as read
//            (d) colour1, (e) colour2   two colour settings of an earlier design, kept as read
//            (f) recentFoodsCount   how many recent foods the food page lists (1..100, default 25)
//            (g) metric             non-zero: kg/cm, day-first dates, 24-hour clock
//            (h) daysInLists        "Number of days of data to display in lists" (1..1067)
//            (i) pie1Mode, (j) pie2Mode   0 Selected Item, 1 Meal, 2 Day, 3 Daily Goals
//            (k) foodListMode       food page list: 0 Custom, 1 Recent, 2 All Foods
//  Group 7   count + f32 goalValues    one goal per goal nutrient once goals are set; a count that
//                                       differs from group 5's means "goals never set"
//  Group 8   i32 x 10 listColumns (NutrientId, -1 unused, used slots form a prefix)
//            i32 x 11 listColumnWidths (pixels, 0 = default; slot 0 is the date column)
//  Group 9   i32 x 21 detailsSlots     the food page's details list, NutrientIds in order, -1 ends it
//  Group 10  i32 x 10 fitnessColumns (ExerciseField ids, -1 unused), i32 x 11 fitnessColumnWidths
//  Group 11  i32 x 100 recentFoods     food numbers, most recent first, -1 unused
//  Group 12  i32 trailing              kept as read (only present above version 129)
struct User
{
    std::int32_t version = CurrentFormatVersion;

    // Group 2
    std::uint8_t gender = 0;
    std::uint8_t activityLevel = 0;
    float weight = 150.0f;
    std::uint8_t lifeStageVariable = 0;
    float age = 30.0f;
    std::uint8_t changeWeight = 0;

    // Group 3
    std::int32_t height = 68;
    float planStartWeight = 0.0f;
    float planEndWeight = 0.0f;
    TimeT planStart = 0;
    TimeT planEnd = 0;
    float dailyChange = 0.0f;

    // Group 4
    std::array<float, 10> bodyGoals{};

    // Group 5 and 7
    std::vector<NutrientId> goalNutrients;
    std::vector<float> goalValues;

    // Group 6
    std::int32_t alwaysShowYear = 0;
    std::int32_t lifeStageGroup = 6;
    std::int32_t raw6c = 0;
    std::int32_t colour1 = 0;
    std::int32_t colour2 = 0;
    std::int32_t recentFoodsCount = 25;
    std::int32_t metric = 0;
    std::int32_t daysInLists = 30;
    std::int32_t pie1Mode = 1;
    std::int32_t pie2Mode = 2;
    std::int32_t foodListMode = 2;

    // Group 8
    std::array<NutrientId, 10> listColumns{208, 203, 205, 204, 291, -1, -1, -1, -1, -1};
    std::array<std::int32_t, 11> listColumnWidths{};

    // Group 9
    static constexpr std::size_t DetailsSlotCount = 21;
    std::array<NutrientId, DetailsSlotCount> detailsSlots{208, 203, 205, 204, 291, 100, 101, 102, -1, -1, -1,
                                                         -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1, -1};

    // Group 10
    std::array<std::int32_t, 10> fitnessColumns{-1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
    std::array<std::int32_t, 11> fitnessColumnWidths{};

    // Group 11
    static constexpr std::size_t RecentFoodSlotCount = 100;
    std::array<std::int32_t, RecentFoodSlotCount> recentFoods = filled(-1);

    // Group 12
    std::int32_t trailing = 0;

    // The details list as a list (slots up to the first -1) and back (at most 21 are kept).
    std::vector<NutrientId> detailsList() const;
    void setDetailsList(const std::vector<NutrientId>& ids);
    // Recent foods up to the first unused slot, most recent first.
    std::vector<std::int32_t> recentFoodList() const;
    // Moves a food to the front of the recent foods (no duplicates, at most 100).
    void noteRecentFood(std::int32_t food);
    // True when the goal values have been set for the goal list (equal counts).
    bool goalsSet() const { return goalValues.size() == goalNutrients.size(); }
    bool isMetric() const { return metric != 0; }

    void read(ArchiveReader& in);
    void write(ArchiveWriter& out) const; // always as version 131, trailing value included

private:
    static std::array<std::int32_t, RecentFoodSlotCount> filled(std::int32_t v)
    {
        std::array<std::int32_t, RecentFoodSlotCount> a{};
        a.fill(v);
        return a;
    }
};

// The goal list that a new user gets: energy, protein, carbohydrate, fat, fibre, the three energy
// shares, then every nutrient of the intake table that the catalogue knows, in table order.
class FoodDatabase;
std::vector<NutrientId> defaultGoalNutrients(const FoodDatabase& foods);

} // namespace velmora::model
