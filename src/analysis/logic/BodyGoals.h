#pragma once

#include <array>
#include <optional>
#include <string>

namespace velmora::model {
struct User;
}

namespace velmora::analysis {

inline constexpr std::size_t BodyGoalCount = 10;

// The texts of the "Set Body Goals" dialog.
extern const char* const BodyGoalsIntroText;     // "Your fitness and nutritional habits ..."
extern const char* const BodyGoalsProgressText;  // "Obtaining these favorable measurements ..."
extern const char* const BodyGoalsColumnHeading; // "Goal (in. or cm):", over both columns
// The boxes' labels in the order of the stored goals: neck .. hips in the left column, biceps ..
// calves in the right one.
extern const std::array<const char*, BodyGoalCount> BodyGoalLabels;
inline constexpr std::size_t BodyGoalsLeftColumn = 6; // labels 0..5 stand in the left column

// The boxes as the dialog opens: each stored goal (inches or centimetres) as a number box shows it.
std::array<std::string, BodyGoalCount> bodyGoalTexts(const model::User& user);

// "OK": stores the ten boxes' numbers into the user's goals. When a box does not hold a number
// nothing is stored and its position is returned, so the dialog stays open on that box.
std::optional<std::size_t> storeBodyGoals(model::User& user,
                                          const std::array<std::string, BodyGoalCount>& boxes);

} // namespace velmora::analysis
