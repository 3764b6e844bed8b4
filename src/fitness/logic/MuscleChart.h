#pragma once

#include <array>
#include <string>
#include <vector>

namespace velmora::fitness {

// The muscle chart: a body picture from the front or the back with numbered muscle groups, and
// one button per number that tells which exercises work that group.

enum class BodyView
{
    Front,
    Back
};

// The view the chart opens with, and the one "<< Rotate Model >>" turns to.
inline constexpr BodyView InitialBodyView = BodyView::Front;
BodyView rotated(BodyView view);

inline constexpr int MuscleButtonCount = 11;

struct MuscleButton
{
    const char* label;     // "1: Front Deltoids"; empty for a hidden button
    const char* exercises; // the message box text
    int textId;            // number of the exercise text: 898 + 2k in front, 899 + 2k in back
    bool visible;
};

// The eleven buttons of a view, button 1 first. In the front view button 11 is hidden with an
// empty label (the front picture has ten groups).
const std::array<MuscleButton, MuscleButtonCount>& muscleButtons(BodyView view);

// The exercise names of a button's text, in order ("Squat, Leg Press" gives Squat and Leg Press).
std::vector<std::string> exerciseNames(const MuscleButton& button);

// The picture of a view among the program's resources (SVG, drawn with the numbers of the
// button labels on the groups).
const char* musclePicture(BodyView view);

} // namespace velmora::fitness
