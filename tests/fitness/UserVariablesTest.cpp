// The health page's variables list and the two variable dialogs.

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "fitness/logic/UserVariables.h"

using namespace velmora;
using namespace velmora::fitness;

namespace {

// A definition locking 250, "mg" and the time 1000 where it does not ask.
model::UserVariable definition(std::int32_t id, const char* name, int askNumber, int askText,
                               int askTime)
{
    return {id, name, 250.0f, "mg", 1000, askNumber, askText, askTime};
}

} // namespace

TEST(UserVariables, ListRows)
{
    const std::vector<model::UserVariable> defs = {definition(5, "Vitamin C", true, false, true),
                                                   definition(6, "Aspirin", false, false, false)};
    model::HealthEntry entry;
    entry.variables = {{5, 500.0f, "tablet", 8 * 3600},
                       {6, 0.0f, "", 8 * 3600},
                       {5, 1234567.0f, "", 8 * 3600},
                       {9, 1.0f / 3.0f, "x", 0}};
    const auto rows = variableRows(defs, entry, true);
    ASSERT_EQ(rows.size(), 4u);
    struct Expected
    {
        const char* name;
        const char* number;
        const char* text;
        bool time;
    };
    const Expected expected[] = {{"Vitamin C", "500", "tablet", true},
                                 {"Aspirin", "", "", false}, // 0 is blank; time not asked
                                 {"Vitamin C", "1.2346e+06", "", true},
                                 {"", "0.33333", "x", false}}; // definition gone
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(rows[i].name, expected[i].name);
        EXPECT_EQ(rows[i].number, expected[i].number);
        EXPECT_EQ(rows[i].text, expected[i].text);
        EXPECT_EQ(rows[i].time.empty(), !expected[i].time);
        EXPECT_EQ(rows[i].itemData, 1000 + static_cast<int>(i));
        EXPECT_EQ(usePosition(rows[i].itemData, entry), i);
    }
    EXPECT_EQ(usePosition(999, entry), std::nullopt);
    EXPECT_EQ(usePosition(1004, entry), std::nullopt);
}

TEST(UserVariables, AddingAUse)
{
    const model::UserVariable locked = definition(6, "Aspirin", false, false, false);
    EXPECT_FALSE(asksEachTime(locked)); // added at once, with the locked values
    const model::VariableUse use = lockedUse(locked);
    EXPECT_EQ(use.variable, 6);
    EXPECT_EQ(use.number, 250.0f);
    EXPECT_EQ(use.text, "mg");

    // "Use Variable" takes only what the definition asks for; the rest stays locked.
    const model::UserVariable asksText = definition(7, "Mood pill", false, true, false);
    EXPECT_TRUE(asksEachTime(asksText));
    const model::VariableUse asked = useFromDialog(asksText, 9.0f, "half", 5000);
    EXPECT_EQ(asked.number, 250.0f);
    EXPECT_EQ(asked.text, "half");
    EXPECT_EQ(asked.time, 1000);
}

TEST(UserVariables, DefineVariableForm)
{
    // No definition chosen: everything asked, number 0, no text, time now; only the name is open
    // for a new variable.
    model::VariableForm form = variableForm(nullptr, 4242);
    EXPECT_EQ(form.time, 4242);
    VariableFormEnabling on = variableFormEnabling(form, true);
    EXPECT_TRUE(on.name);
    EXPECT_FALSE(on.number || on.text || on.time);

    const model::UserVariable aspirin = definition(6, "Aspirin", false, false, false);
    form = variableForm(&aspirin, 4242);
    on = variableFormEnabling(form, false);
    EXPECT_FALSE(on.name);
    EXPECT_TRUE(on.number && on.text && on.time);

    // Asking for the number after a locked number was entered sets it back to 0; the text
    // likewise empties. Unchecking keeps the value.
    setAskNumber(form, true);
    setAskText(form, true);
    EXPECT_EQ(form.number, 0.0f);
    EXPECT_EQ(form.text, "");
    form.number = 3.0f;
    setAskNumber(form, false);
    EXPECT_EQ(form.number, 3.0f);
}
