// The muscle chart's buttons and the pictures they refer to.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "fitness/logic/MuscleChart.h"

using namespace velmora::fitness;

namespace {

std::string readPicture(BodyView view)
{
    std::ifstream in(std::string(VELMORA_RES_DIR) + "/" + musclePicture(view), std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::size_t count(const std::string& text, const std::string& what)
{
    std::size_t n = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++n;
    return n;
}

// The element that begins with the given attribute, up to its group's end.
std::string groupWith(const std::string& svg, const std::string& attribute)
{
    const auto at = svg.find(attribute);
    if (at == std::string::npos)
        return {};
    return svg.substr(at, svg.find("</g>", at) - at);
}

} // namespace

TEST(MuscleChart, ButtonsOfBothViews)
{
    EXPECT_EQ(rotated(rotated(InitialBodyView)), InitialBodyView);
    EXPECT_FALSE(muscleButtons(BodyView::Front)[10].visible);
    const MuscleButton& triceps = muscleButtons(rotated(InitialBodyView))[0];
    EXPECT_STREQ(triceps.label, "1: Triceps");
    EXPECT_EQ(exerciseNames(triceps),
              (std::vector<std::string>{"Dips", "Tricep Extention", "Overhead Tricep Press"}));

    for (BodyView view : {BodyView::Front, BodyView::Back}) {
        const auto& buttons = muscleButtons(view);
        for (int k = 1; k <= MuscleButtonCount; ++k) {
            const MuscleButton& b = buttons[static_cast<std::size_t>(k - 1)];
            SCOPED_TRACE(b.label);
            EXPECT_EQ(b.textId, 898 + 2 * k + (view == BodyView::Back ? 1 : 0));
            // Labels are numbered in order; a hidden button has none.
            EXPECT_EQ(std::string(b.label).rfind(std::to_string(k) + ": ", 0) == 0, b.visible);
        }
    }
}

// Each picture carries exactly the numbers of its view's visible buttons, each once, on the
// muscle group that the button names.
TEST(MuscleChart, PicturesMatchTheButtons)
{
    for (BodyView view : {BodyView::Front, BodyView::Back}) {
        SCOPED_TRACE(musclePicture(view));
        const std::string svg = readPicture(view);
        ASSERT_FALSE(svg.empty());
        int visible = 0;
        for (int k = 1; k <= MuscleButtonCount; ++k) {
            const MuscleButton& b = muscleButtons(view)[static_cast<std::size_t>(k - 1)];
            const std::string number = "id=\"number-" + std::to_string(k) + "\"";
            const std::string muscle = "id=\"muscle-" + std::to_string(k) + "\"";
            if (!b.visible) {
                EXPECT_EQ(count(svg, number), 0u);
                EXPECT_EQ(count(svg, muscle), 0u);
                continue;
            }
            ++visible;
            SCOPED_TRACE(b.label);
            EXPECT_EQ(count(svg, number), 1u);
            EXPECT_EQ(count(svg, muscle), 1u);
            EXPECT_NE(groupWith(svg, number).find(">" + std::to_string(k) + "</text>"),
                      std::string::npos);
            const std::string name =
                std::string(b.label).substr(std::string(b.label).find(": ") + 2);
            EXPECT_NE(groupWith(svg, muscle).find("<title>" + name + "</title>"),
                      std::string::npos);
        }
        EXPECT_EQ(count(svg, "id=\"number-"), static_cast<std::size_t>(visible));
    }
}
