#include "fitness/logic/MuscleChart.h"

#include <string_view>

namespace velmora::fitness {

namespace {

constexpr std::array<MuscleButton, MuscleButtonCount> FrontButtons = {{
    {"1: Front Deltoids", "Shoulder Press, Upwards Row, Front Lateral Raise", 900, true},
    {"2: Upper Pectorals", "Incline Bench Press, Incline Flye", 902, true},
    {"3: Biceps", "Chin-up, Barbell Curl, Preacher Curl", 904, true},
    {"4: Middle Pectorals", "Bench Press, Flye", 906, true},
    {"5: Upper Abdominals", "Crunch, Sit-up, Incline Crunch, Incline Sit-up", 908, true},
    {"6: Obliques", "Seated Twist with Pole, Standing Twist", 910, true},
    {"7: Forearms", "Palm-up Forearm Curl, Palm-down Forearm Curl, Reverse Curl", 912, true},
    {"8: Serratus", "Wide Grip Pull-Up, Lat Pull-Down, Crunch", 914, true},
    {"9: Lower Abdominals", "Hanging Leg or Knee Raise, Leg Raise", 916, true},
    {"10: Quadriceps", "Squat, Leg Press, Leg Extention, Lunge", 918, true},
    {"", "", 920, false},
}};

constexpr std::array<MuscleButton, MuscleButtonCount> BackButtons = {{
    {"1: Triceps", "Dips, Tricep Extention, Overhead Tricep Press", 901, true},
    {"2: Rear Deltoids", "Bent-Over Lateral, Seated Row, Bent Over Row", 903, true},
    {"3: Upper Lats", "Wide Grip Pull-Up, Lat Pull Down", 905, true},
    {"4: Trapezius", "Dumbbell or Barbell Shrug, Upright Row", 907, true},
    {"5: Lateral Deltoids", "Side Lateral Raise", 909, true},
    {"6: Lower Lats", "Seated Row, Deadlift", 911, true},
    {"7: Lower Back", "Deadlift, Hyper Extention", 913, true},
    {"8: Middle Back", "Seated Row, Bent-Over Row", 915, true},
    {"9: Glutes", "Lunge, Leg Curl, Squat", 917, true},
    {"10: Hamstrings", "Leg Curl", 919, true},
    {"11: Calves", "Standing Calf Raise, Seated Calf Raise", 921, true},
}};

} // namespace

BodyView rotated(BodyView view)
{
    return view == BodyView::Front ? BodyView::Back : BodyView::Front;
}

const std::array<MuscleButton, MuscleButtonCount>& muscleButtons(BodyView view)
{
    return view == BodyView::Front ? FrontButtons : BackButtons;
}

std::vector<std::string> exerciseNames(const MuscleButton& button)
{
    std::vector<std::string> names;
    std::string_view rest = button.exercises;
    while (!rest.empty()) {
        const auto comma = rest.find(',');
        std::string_view name = rest.substr(0, comma);
        while (!name.empty() && name.front() == ' ')
            name.remove_prefix(1);
        if (!name.empty())
            names.emplace_back(name);
        if (comma == std::string_view::npos)
            break;
        rest.remove_prefix(comma + 1);
    }
    return names;
}

const char* musclePicture(BodyView view)
{
    return view == BodyView::Front ? "muscles/front.svg" : "muscles/back.svg";
}

} // namespace velmora::fitness
