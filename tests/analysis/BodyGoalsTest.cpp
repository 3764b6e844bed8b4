// The ten boxes of "Set Body Goals": confirming unchanged boxes keeps every stored value exactly.

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "analysis/logic/BodyGoals.h"
#include "analysis/logic/NumberText.h"
#include "model/User.h"

using namespace velmora;

TEST(BodyGoals, UnchangedBoxesStoreTheSameValues)
{
    model::User user;
    user.bodyGoals = {15.5f, 48.0f, 42.3f, 0.1f, 32.7f, 0.0f, 1e-5f, 12.345678f, 123456.79f, 16.6f};
    const auto texts = analysis::bodyGoalTexts(user);
    EXPECT_EQ(texts[0], "15.5");
    EXPECT_EQ(texts[5], "0");
    EXPECT_EQ(texts[2], "42.3");

    model::User copy;
    EXPECT_EQ(analysis::storeBodyGoals(copy, texts), std::nullopt);
    for (std::size_t i = 0; i < analysis::BodyGoalCount; ++i)
        EXPECT_EQ(copy.bodyGoals[i], user.bodyGoals[i]) << analysis::BodyGoalLabels[i];
}

TEST(BodyGoals, ABoxWithoutANumberStoresNothing)
{
    model::User user;
    user.bodyGoals.fill(10.0f);
    std::array<std::string, analysis::BodyGoalCount> boxes;
    boxes.fill(" 14.25 ");
    struct Case
    {
        std::size_t box;
        const char* text;
    };
    const Case cases[] = {{0, ""}, {3, "abc"}, {6, "12,5"}, {9, "inf"}, {4, "1e999"}, {8, "3 4"}};
    for (const Case& c : cases) {
        auto bad = boxes;
        bad[c.box] = c.text;
        EXPECT_EQ(analysis::storeBodyGoals(user, bad), c.box) << c.text;
        EXPECT_EQ(user.bodyGoals[0], 10.0f) << c.text;
    }
    EXPECT_EQ(analysis::storeBodyGoals(user, boxes), std::nullopt);
    EXPECT_EQ(user.bodyGoals[9], 14.25f);
}
