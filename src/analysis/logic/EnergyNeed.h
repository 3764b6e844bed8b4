#pragma once

#include <array>
#include <cstdint>

namespace velmora::analysis {

// The profile behind a diet goal estimate, as the "Diet Goals" dialog holds it.
struct Profile
{
    float age = 30.0f;                  // years; fractional for infants
    std::uint8_t gender = 0;            // 0 "Male", 1 "Female"
    std::uint8_t lifeStageVariable = 0; // index into LifeStageVariableNames
    std::uint8_t activityLevel = 0;     // index into ActivityLevelNames
    float weight = 150.0f;              // pounds, or kilograms when metric
    std::int32_t height = 68;           // whole inches, or centimetres when metric
    bool metric = false;
};

inline constexpr std::uint8_t Male = 0;
inline constexpr std::uint8_t Female = 1;

// The drop lists of the profile, in index order.
extern const std::array<const char*, 2> GenderNames;
extern const std::array<const char*, 6> LifeStageVariableNames;
extern const std::array<const char*, 4> ActivityLevelNames;

// The life-stage group 0..21 that indexes the recommended-intake table. The upper bounds 13, 18
// and 30 years belong to their group, while 50 and 70 start the next one; a woman in her third
// trimester falls in the group of women who are not pregnant. Any gender other than Female counts
// as Male.
int lifeStageGroup(float age, std::uint8_t gender, std::uint8_t lifeStageVariable);

// The energy the life-stage variable adds for a woman, in kcal a day: 340 and 452 in the second
// and third trimester, 330 and 400 in the first and second six months of lactation, else 0.
int lifeStageEnergyExtra(std::uint8_t lifeStageVariable);

// The daily energy need in kcal. Children below 19 years take fixed values by age (a girl's plus
// her life-stage extra; a girl above 18 and below 19 gets the extra alone); everyone else the adult
// formula from height in metres, weight in kilograms (pounds divided by 2.2) and the activity
// factor of the gender. An activity level beyond the four known ones counts as sedentary.
double energyNeed(const Profile& profile);

} // namespace velmora::analysis
