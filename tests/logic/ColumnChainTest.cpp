// The chained column choices of "Choose Columns" and the details-list editing of
// "Configure Displays".

#include <gtest/gtest.h>

#include <vector>

#include "food/logic/ColumnChain.h"
#include "food/logic/DisplaySettings.h"
#include "model/Store.h"
#include "model/User.h"

using namespace velmora;
using food::ColumnChain;

namespace {

constexpr std::int32_t No = ColumnChain::NoColumn;
const std::vector<std::int32_t> Offered{203, 204, 205, 208, 291, 100, 101, 102, 103, 104, 105};

} // namespace

TEST(ColumnChain, ALaterColumnCannotBeChosenWhileAnEarlierOneIsEmpty)
{
    ColumnChain chain({208, No, No, No, No, No, No, No, No, No}, Offered);
    EXPECT_TRUE(chain.isEnabled(0));
    EXPECT_TRUE(chain.isEnabled(1));
    EXPECT_FALSE(chain.isEnabled(2));
    EXPECT_FALSE(chain.choose(2, 203));
    EXPECT_EQ(chain.choice(2), No);

    EXPECT_TRUE(chain.choose(1, 203));
    EXPECT_TRUE(chain.isEnabled(2));
    EXPECT_TRUE(chain.choose(2, 205));
    EXPECT_FALSE(chain.isEnabled(4));
    EXPECT_EQ(chain.result(), (ColumnChain::Slots{208, 203, 205, No, No, No, No, No, No, No}));
}

TEST(ColumnChain, EmptyingAColumnClearsItAndEveryLaterOneOnStore)
{
    ColumnChain chain({208, 203, 205, 204, 291, 100, 101, 102, 103, 104}, Offered);
    for (std::size_t k = 0; k < ColumnChain::SlotCount; ++k)
        EXPECT_TRUE(chain.isEnabled(k)) << k;

    ASSERT_TRUE(chain.choose(1, No));
    for (std::size_t k = 2; k < ColumnChain::SlotCount; ++k)
        EXPECT_FALSE(chain.isEnabled(k)) << k;
    // The later lists still show their old choice, but storing ends at the first empty one.
    EXPECT_EQ(chain.choice(2), 205);
    EXPECT_EQ(chain.result(), (ColumnChain::Slots{208, No, No, No, No, No, No, No, No, No}));

    // Choosing column 2 again brings the chain back as it was shown.
    ASSERT_TRUE(chain.choose(1, 101));
    EXPECT_EQ(chain.result(),
              (ColumnChain::Slots{208, 101, 205, 204, 291, 100, 101, 102, 103, 104}));

    ASSERT_TRUE(chain.choose(0, No));
    EXPECT_EQ(chain.result(), (ColumnChain::Slots{No, No, No, No, No, No, No, No, No, No}));
}

TEST(ColumnChain, StoredSlotsThatAreUnknownOrBeyondAGapShowAndStoreAsEmpty)
{
    struct Case
    {
        ColumnChain::Slots stored;
        ColumnChain::Slots expected;
    };
    const std::vector<Case> cases{
        // 999 is not offered: it shows as " <No Column>" and ends the chain.
        {{208, 999, 205, No, No, No, No, No, No, No}, {208, No, No, No, No, No, No, No, No, No}},
        // A gap in the stored slots (not a prefix) is closed at the gap.
        {{208, No, 205, 204, No, No, No, No, No, No}, {208, No, No, No, No, No, No, No, No, No}},
        {{No, 203, No, No, No, No, No, No, No, No}, {No, No, No, No, No, No, No, No, No, No}},
        // Small item values (exercise fields) are items too.
        {{1, 2, 3, No, No, No, No, No, No, No}, {1, 2, 3, No, No, No, No, No, No, No}},
    };
    std::vector<std::int32_t> offered = Offered;
    offered.insert(offered.end(), {1, 2, 3});
    for (const Case& c : cases)
        EXPECT_EQ(ColumnChain(c.stored, offered).result(), c.expected);
}

TEST(DetailsListEditor, UpDownAndRemoveAreOfferedOnlyWhereTheyMakeSense)
{
    food::DetailsListEditor editor({208, 203, 205});
    EXPECT_FALSE(editor.canRemove() || editor.canMoveUp() || editor.canMoveDown()); // no selection

    editor.select(0);
    EXPECT_TRUE(editor.canRemove());
    EXPECT_FALSE(editor.moveUp());
    ASSERT_TRUE(editor.moveDown());
    ASSERT_TRUE(editor.moveDown());
    EXPECT_EQ(editor.selected(), 2);
    EXPECT_FALSE(editor.canMoveDown());
    EXPECT_FALSE(editor.moveDown());
    EXPECT_EQ(editor.items(), (std::vector<model::NutrientId>{203, 205, 208}));

    // Removing the last entry selects the one before it; removing the only one selects nothing.
    ASSERT_TRUE(editor.remove());
    EXPECT_EQ(editor.selected(), 1);
    editor.select(0);
    ASSERT_TRUE(editor.remove());
    ASSERT_TRUE(editor.remove());
    EXPECT_EQ(editor.selected(), -1);
    EXPECT_FALSE(editor.remove());

    editor.add(291);
    EXPECT_EQ(editor.selected(), 0);
    EXPECT_FALSE(editor.canMoveUp() || editor.canMoveDown());
}

TEST(DisplaySettings, AddOffersTheGoalListOrTheNewUsersListWhileNoneIsSet)
{
    model::Store store;
    store.foods.setCatalogue({{203, "g", "Protein"},
                              {204, "g", "Fat"},
                              {208, "kcal", "Energy"},
                              {401, "mg", "Vitamin C"}});
    store.foods.catalogue().appendComputed();

    store.journal.user.goalNutrients = {401, 777, 203, 401};
    EXPECT_EQ(food::addableNutrients(store), (std::vector<model::NutrientId>{401, 203}));

    store.journal.user.goalNutrients.clear();
    const auto offered = food::addableNutrients(store);
    EXPECT_FALSE(offered.empty());
    EXPECT_EQ(offered.front(), 208);
    for (model::NutrientId n : offered)
        EXPECT_NE(store.foods.catalogue().find(n), nullptr) << n;
}

TEST(DisplaySettings, OkKeepsAtMost21DetailsAndClampsPieModes)
{
    model::User user;
    std::vector<model::NutrientId> many;
    for (int i = 0; i < 23; ++i)
        many.push_back(300 + i);
    EXPECT_FALSE(food::applyDisplaySettings(user, 3, 7, many));
    EXPECT_EQ(user.pie1Mode, 3);
    EXPECT_EQ(user.pie2Mode, 3);
    ASSERT_EQ(user.detailsList().size(), 21u);
    EXPECT_EQ(user.detailsList().back(), 320);

    EXPECT_TRUE(food::applyDisplaySettings(user, 0, 2, {102, 100}));
    EXPECT_EQ(user.detailsList(), (std::vector<model::NutrientId>{102, 100}));
    EXPECT_EQ(user.pie1Mode, 0);
    EXPECT_EQ(user.pie2Mode, 2);
}
