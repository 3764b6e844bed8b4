#include "analysis/logic/BodyGoals.h"

#include "analysis/logic/NumberText.h"
#include "model/User.h"

namespace velmora::analysis {

const char* const BodyGoalsIntroText =
    "Your fitness and nutritional habits can have a great effect on how your body looks.  Use "
    "these fields to set realistic goals on how you want your body to measure in the future.";
const char* const BodyGoalsProgressText =
    "Obtaining these favorable measurements will probably require both exercise and a change in "
    "diet.  Your measurement changes can be graphed, for progress reports and fine tuning of your "
    "fitness and nutritional habits.";
const char* const BodyGoalsColumnHeading = "Goal (in. or cm):";
const std::array<const char*, BodyGoalCount> BodyGoalLabels = {
    "Neck:", "Shoulders:", "Chest:",    "Stomach:", "Waist:",
    "Hips:", "Biceps:",    "Forearms:", "Thighs:",  "Calves:"};

std::array<std::string, BodyGoalCount> bodyGoalTexts(const model::User& user)
{
    std::array<std::string, BodyGoalCount> texts;
    for (std::size_t i = 0; i < BodyGoalCount; ++i)
        texts[i] = numberBoxText(user.bodyGoals[i]);
    return texts;
}

std::optional<std::size_t> storeBodyGoals(model::User& user,
                                          const std::array<std::string, BodyGoalCount>& boxes)
{
    std::array<float, BodyGoalCount> values{};
    for (std::size_t i = 0; i < BodyGoalCount; ++i) {
        const std::optional<float> v = parseFloatNumber(boxes[i]);
        if (!v)
            return i;
        values[i] = *v;
    }
    user.bodyGoals = values;
    return std::nullopt;
}

} // namespace velmora::analysis
