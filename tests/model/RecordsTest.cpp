#include <gtest/gtest.h>

#include "model/TandryFiles.h"
#include "model/UserDatabase.h"
#include "support/Bytes.h"
#include "support/Fixtures.h"

using namespace velmora::model;
using namespace velmora::test;

TEST(UserRecord, HandMadeBytesMapOntoTheNamedSlots)
{
    const auto bytes = handMadeUserRecord();
    ArchiveReader in(bytes);
    User u;
    u.read(in);
    EXPECT_TRUE(in.atEnd());
    EXPECT_EQ(u.version, 131);
    EXPECT_EQ(u.gender, 1);
    EXPECT_EQ(u.activityLevel, 2);
    EXPECT_EQ(u.weight, 61.5f);
    EXPECT_EQ(u.lifeStageVariable, 3);
    EXPECT_EQ(u.age, 29.5f);
    EXPECT_EQ(u.changeWeight, 1);
    EXPECT_EQ(u.height, 170);
    EXPECT_EQ(u.planStartWeight, 70.0f);
    EXPECT_EQ(u.planEndWeight, 65.0f);
    EXPECT_EQ(u.planStart, 1577836800);
    EXPECT_EQ(u.planEnd, 1583020800);
    EXPECT_EQ(u.dailyChange, -500.0f);
    EXPECT_EQ(u.bodyGoals[9], 10.0f);
    EXPECT_EQ(u.goalNutrients, (std::vector<NutrientId>{208, 203}));
    EXPECT_EQ(u.alwaysShowYear, 11);
    EXPECT_EQ(u.lifeStageGroup, 12);
    EXPECT_EQ(u.metric, 17);
    EXPECT_EQ(u.foodListMode, 21);
    EXPECT_EQ(u.goalValues, (std::vector<float>{2000.0f, 50.0f}));
    EXPECT_TRUE(u.goalsSet());
    EXPECT_EQ(u.listColumns[1], 203);
    EXPECT_EQ(u.listColumnWidths[10], 110);
    EXPECT_EQ(u.detailsList(), (std::vector<NutrientId>{208}));
    EXPECT_EQ(u.fitnessColumns[2], 5);
    EXPECT_EQ(u.fitnessColumnWidths[0], 200);
    EXPECT_EQ(u.recentFoodList(), (std::vector<std::int32_t>{1001, 70000}));
    EXPECT_EQ(u.trailing, 7);

    ArchiveWriter out;
    u.write(out);
    EXPECT_EQ(out.bytes(), bytes);
}

TEST(UserRecord, Version129HasNoTrailingValueAndIsWrittenAs131)
{
    const auto old = handMadeUserRecordV129();
    auto withMarker = old;
    withMarker.push_back(0xAB); // must stay unread
    ArchiveReader in(withMarker);
    User u;
    u.read(in);
    EXPECT_EQ(in.remaining(), 1u);
    EXPECT_EQ(u.version, 129);
    u.trailing = 7;
    ArchiveWriter out;
    u.write(out);
    EXPECT_EQ(out.bytes(), handMadeUserRecord());
}

TEST(UserRecord, RecentFoodsAndDetailsList)
{
    User u;
    u.noteRecentFood(1);
    u.noteRecentFood(2);
    u.noteRecentFood(1);
    EXPECT_EQ(u.recentFoodList(), (std::vector<std::int32_t>{1, 2}));
    for (int i = 0; i < 150; ++i)
        u.noteRecentFood(1000 + i);
    EXPECT_EQ(u.recentFoodList().size(), 100u);
    EXPECT_EQ(u.recentFoodList().front(), 1149);

    std::vector<NutrientId> many(30, 203);
    u.setDetailsList(many);
    EXPECT_EQ(u.detailsList().size(), User::DetailsSlotCount);
    u.setDetailsList({208, 204});
    EXPECT_EQ(u.detailsList(), (std::vector<NutrientId>{208, 204}));
}

TEST(SharedFile, HandMadeImageParsesAndWritesBackByteForByte)
{
    const auto bytes = handMadeShared();
    auto r = SharedData::parse(bytes, "velmora.db");
    ASSERT_TRUE(r.ok()) << r.error().message();
    const SharedData& d = r.value();
    EXPECT_EQ(d.version, 131);
    EXPECT_EQ(d.oldFormatVersion, 0);
    EXPECT_EQ(d.header2, "User Database");
    EXPECT_EQ(d.counters.values[IdCounters::CustomFood], 70001);
    EXPECT_EQ(d.counters.values[IdCounters::ExerciseField], 3);
    EXPECT_EQ(d.currentUser, 1);
    EXPECT_EQ(d.userNames, (std::vector<std::string>{"Anna", "Bert"}));
    ASSERT_EQ(d.customFoods.size(), 1u);
    EXPECT_EQ(d.customFoods[0].servingWeight, 250.0f);
    EXPECT_EQ(d.customFoods[0].values[1], 2.0f);
    EXPECT_TRUE(d.customFoods[0].measures.empty());
    ASSERT_EQ(d.fields.size(), 2u);
    EXPECT_EQ(d.fields[1].kind, 2);
    EXPECT_EQ(d.exercises[0].fields, (std::vector<std::int32_t>{1, 2}));
    EXPECT_EQ(d.routines[0].calories, 300);
    EXPECT_EQ(d.routines[0].exercises, (std::vector<std::int32_t>{1}));
    EXPECT_EQ(d.variables[0].askText, 0);
    EXPECT_EQ(d.variables[0].text, "mg");
    EXPECT_EQ(d.serialize(), bytes);
}

TEST(SharedFile, OlderVersionIsMarkedAndRewrittenAs131)
{
    auto bytes = handMadeShared();
    bytes[0] = 130;
    auto r = SharedData::parse(bytes, "velmora.db");
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.value().version, 130);
    EXPECT_EQ(r.value().oldFormatVersion, 130);
    EXPECT_EQ(r.value().serialize(), handMadeShared());
}

// Both shared files hold at most 255 user names: the rest are not written.
TEST(SharedFile, AtMost255NamesAreWritten)
{
    std::vector<std::string> names;
    for (int i = 0; i < 300; ++i)
        names.push_back("U" + std::to_string(i));
    SharedData d;
    d.userNames = names;
    TandryShared t;
    t.userNames = names;
    const std::vector<std::string> read[] = {
        SharedData::parse(d.serialize(), "velmora.db").take().userNames,
        TandryShared::parse(t.serialize(), "tandry.db").take().userNames,
    };
    for (const auto& r : read)
        EXPECT_EQ(r, std::vector<std::string>(names.begin(), names.begin() + 255));
}

TEST(UserFile, HandMadeImageParsesAndWritesBackByteForByte)
{
    const auto bytes = handMadeUserFile();
    auto r = UserJournal::parse(bytes, "Anna.db");
    ASSERT_TRUE(r.ok()) << r.error().message();
    const UserJournal& j = r.value();
    ASSERT_EQ(j.days.size(), 2u);
    const JournalDay& d = j.days[0];
    EXPECT_EQ(d.date, 1577923200);
    EXPECT_EQ(d.health.bmi, 24.2f);
    EXPECT_EQ(d.health.temperature, 36.6f); // stored before VO2 max
    EXPECT_EQ(d.health.vo2Max, 45.0f);
    EXPECT_EQ(d.health.mood, 3);
    EXPECT_EQ(d.health.measurement(Measurement::LeftCalf), 14.0f);
    ASSERT_EQ(d.health.variables.size(), 1u);
    EXPECT_EQ(d.health.variables[0].text, "taken");
    EXPECT_EQ(d.health.variables[0].number, 500.0f);
    ASSERT_EQ(d.meals.size(), 1u);
    EXPECT_EQ(d.meals[0].entries[1].food, 70000);
    EXPECT_EQ(d.meals[0].entries[0].amount, 1.5f);
    ASSERT_EQ(d.workouts.size(), 1u);
    EXPECT_EQ(d.workouts[0].notes, "easy");
    EXPECT_EQ(d.workouts[0].exercises[0].values[1].value, "0:30");
    EXPECT_EQ(d.notes[2], "diet");
    EXPECT_TRUE(j.days[1].isEmpty());
    EXPECT_FALSE(d.isEmpty());
    EXPECT_EQ(j.findDay(1578009600), &j.days[1]);
    EXPECT_EQ(j.serialize(), bytes);
}

TEST(UserFile, ANegativeDayCountIsADamagedFile)
{
    auto negative = handMadeUserFile();
    const std::size_t dayCount = handMadeUserRecord().size();
    negative[dayCount + 3] = 0x80;
    auto r = UserJournal::parse(negative, "Anna.db");
    ASSERT_FALSE(r.ok());
    EXPECT_EQ(r.error().code, FileErrorCode::BadCount);
    EXPECT_EQ(r.error().offset, dayCount);
    EXPECT_EQ(r.error().file, "Anna.db");
}
