#include "analysis/logic/EnergyNeed.h"

namespace velmora::analysis {

const std::array<const char*, 2> GenderNames = {"Male", "Female"};
const std::array<const char*, 6> LifeStageVariableNames = {"None",
                                                           "Pregnant, 1st Trimester",
                                                           "Pregnant, 2nd Trimester",
                                                           "Pregnant, 3rd Trimester",
                                                           "Lactation, 1st 6 months",
                                                           "Lactation, 2nd 6 months"};
const std::array<const char*, 4> ActivityLevelNames = {
    "Sedentary (eg. desk job)", "Physical Labour (eg. construction)",
    "Hard Labour (eg. shovelling dirt)", "Elite Athelite (eg. olympic training)"};

namespace {

constexpr double InchesToMetres = 0.0254000508001016;
constexpr double PoundsToKilograms = 0.45454545454545453; // 1 / 2.2

// Activity factors by level, men and women.
constexpr double MaleActivity[] = {1.0, 1.11, 1.25, 1.48};
constexpr double FemaleActivity[] = {1.0, 1.12, 1.27, 1.45};

bool isFemale(std::uint8_t gender)
{
    return gender == Female;
}

} // namespace

int lifeStageGroup(float age, std::uint8_t gender, std::uint8_t lifeStageVariable)
{
    const double a = age;
    if (a < 19.0) {
        if (a <= 0.5)
            return 0;
        if (a <= 1.0)
            return 1;
        if (a <= 3.0)
            return 2;
        if (a <= 8.0)
            return 3;
    }
    if (!isFemale(gender)) {
        if (a <= 13.0)
            return 4;
        if (a <= 18.0)
            return 5;
        if (a <= 30.0)
            return 6;
        if (a < 50.0)
            return 7;
        if (a < 70.0)
            return 8;
        return 9;
    }
    if (lifeStageVariable == 1 || lifeStageVariable == 2)
        return a <= 18.0 ? 16 : (a <= 30.0 ? 17 : 18);
    if (lifeStageVariable == 4 || lifeStageVariable == 5)
        return a <= 18.0 ? 19 : (a <= 30.0 ? 20 : 21);
    if (a <= 13.0)
        return 10;
    if (a <= 18.0)
        return 11;
    if (a <= 30.0)
        return 12;
    if (a < 50.0)
        return 13;
    if (a < 70.0)
        return 14;
    return 15;
}

int lifeStageEnergyExtra(std::uint8_t lifeStageVariable)
{
    switch (lifeStageVariable) {
    case 2:
        return 340;
    case 3:
        return 452;
    case 4:
        return 330;
    case 5:
        return 400;
    default:
        return 0;
    }
}

double energyNeed(const Profile& p)
{
    const double age = p.age;
    const bool female = isFemale(p.gender);
    const double extra = female ? lifeStageEnergyExtra(p.lifeStageVariable) : 0.0;
    if (age < 19.0) {
        if (!female) {
            if (age <= 0.5)
                return 570;
            if (age <= 1.0)
                return 743;
            if (age <= 3.0)
                return 1046;
            if (age <= 8.0)
                return 1742;
            if (age <= 13.0)
                return 2279;
            if (age <= 18.0)
                return 3152;
            // Above 18 and below 19: the adult formula below.
        } else {
            if (age <= 0.5)
                return extra + 520;
            if (age <= 1.0)
                return extra + 676;
            if (age <= 3.0)
                return extra + 992;
            if (age <= 8.0)
                return extra + 1642;
            if (age <= 13.0)
                return extra + 2071;
            if (age <= 18.0)
                return extra + 2368;
            return extra;
        }
    }
    const double height =
        p.metric ? p.height * 0.01 : static_cast<double>(p.height) * InchesToMetres;
    const double weight = p.metric ? static_cast<double>(p.weight)
                                   : static_cast<double>(p.weight) * PoundsToKilograms;
    const std::size_t level = p.activityLevel < 4 ? p.activityLevel : 0;
    if (!female)
        return (539.6 * height + 15.91 * weight) * MaleActivity[level] + 662.0 - 9.53 * age;
    return (726.0 * height + 9.36 * weight) * FemaleActivity[level] + extra + 354.0 - 6.91 * age;
}

} // namespace velmora::analysis
