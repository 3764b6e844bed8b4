#include <gtest/gtest.h>

#include <functional>

#include "model/KorvelFiles.h"
#include "model/TandryFiles.h"
#include "model/UserDatabase.h"
#include "support/TransferBytes.h"

using namespace velmora;
using namespace velmora::model;
using velmora::test::Bytes;

namespace {

template <class T> std::vector<std::uint8_t> rewritten(const std::vector<std::uint8_t>& bytes)
{
    auto parsed = T::parse(bytes, "file");
    EXPECT_TRUE(parsed.ok()) << (parsed.ok() ? "" : parsed.error().message());
    return parsed.ok() ? parsed.value().serialize() : std::vector<std::uint8_t>{};
}

void setVersion(std::vector<std::uint8_t>& bytes, std::uint32_t version)
{
    for (int i = 0; i < 4; ++i)
        bytes[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(version >> (8 * i));
}

} // namespace

TEST(TandryFoodRecord, ValuesSitAtTheirIndexesInFileOrder)
{
    const auto bytes = test::handTandryFood();
    model::ArchiveReader in(bytes);
    TandryFood food;
    food.read(in);
    EXPECT_TRUE(in.atEnd());
    EXPECT_EQ(food.id, 50001u);
    EXPECT_EQ(food.name, "Oats");
    // Each stored value is 100 + its index, so value(i) = (100 + i) / 10 wherever i is stored.
    for (int i : {1,  2,  3,  4,  5,  6,  7,  8,  9,  13, 14, 15, 16, 17, 18,
                  19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32})
        EXPECT_DOUBLE_EQ(food.value(i), (100 + i) * 0.1) << "value index " << i;
    EXPECT_DOUBLE_EQ(food.value(0), 10.0); // 50001 keeps its stored base amount
    EXPECT_DOUBLE_EQ(food.value(34), 0.0);
    ASSERT_EQ(food.measures.size(), 1u);
    EXPECT_EQ(food.measures[0].amount, 15);
    EXPECT_EQ(food.measures[0].text, "cup");

    model::ArchiveWriter out;
    food.write(out);
    EXPECT_EQ(out.bytes(), bytes);
}

TEST(TandryProfileRecord, SettingsGoalsAndListReadAndWriteBackUnchanged)
{
    const auto bytes = test::handTandryProfile(376);
    model::ArchiveReader in(bytes);
    TandryProfile p;
    EXPECT_EQ(p.read(in), 376u);
    EXPECT_TRUE(in.atEnd());
    EXPECT_EQ(p.settings2[1], 3);
    EXPECT_EQ(p.setting4, 4u);
    EXPECT_EQ(p.settings11[6], 17);
    EXPECT_EQ(p.settings18[2], 20u);
    EXPECT_EQ(p.setting25, 25u);
    EXPECT_EQ(p.goals[0], 1000.0);
    EXPECT_EQ(p.goals[32], 1032.0);
    EXPECT_EQ(p.settings27[2], 273u);
    EXPECT_EQ(p.dates[1], -86400); // times are signed
    EXPECT_EQ(p.entries, (std::vector<std::uint32_t>{301, 302}));
    EXPECT_EQ(p.settings32[7], 47);
    EXPECT_EQ(p.lastSetting, 33333u);

    model::ArchiveWriter out;
    p.write(out);
    EXPECT_EQ(out.bytes(), bytes);
}

TEST(TandryProfileRecord, BeforeVersion340TheLastSettingIsAbsentAndTheRecordIsUpgraded)
{
    auto bytes = test::handTandryProfile(339);
    bytes.push_back(0xAB); // must stay unread
    model::ArchiveReader in(bytes);
    TandryProfile p;
    EXPECT_EQ(p.read(in), 339u);
    EXPECT_EQ(in.remaining(), 1u);
    EXPECT_EQ(p.version, 376u);
    EXPECT_EQ(p.lastSetting, 0u);

    auto expected = test::handTandryProfile(339);
    setVersion(expected, 376);
    expected.insert(expected.end(), {0, 0, 0, 0});
    model::ArchiveWriter out;
    p.write(out);
    EXPECT_EQ(out.bytes(), expected);
}

TEST(TandryProfileRecord, MoreThanAHundredListEntriesIsADamagedFile)
{
    EXPECT_TRUE(
        TandryUser::parse(Bytes().append(test::handTandryProfile(376, 100)).u32(0).bytes(), "u")
            .ok());
    const auto r = TandryUser::parse(
        Bytes().append(test::handTandryProfile(376, 101)).u32(0).bytes(), "Ann.db");
    ASSERT_FALSE(r.ok());
    EXPECT_EQ(r.error().code, model::FileErrorCode::BadValue);
    EXPECT_EQ(r.error().file, "Ann.db");
    EXPECT_EQ(r.error().offset, 44u); // the list length: 4 + 2 + 4 + 3 + 12 + 7 + 12
}

TEST(KorvelProfileRecord, SettingsReadAndWriteBackUnchanged)
{
    const auto bytes = test::handKorvelProfile(302);
    model::ArchiveReader in(bytes);
    KorvelProfile p;
    EXPECT_EQ(p.read(in), 302u);
    EXPECT_TRUE(in.atEnd());
    EXPECT_EQ(p.settings11[3], 14);
    EXPECT_EQ(p.settings15[2], 17u);
    EXPECT_EQ(p.setting20, 20u);
    EXPECT_EQ(p.setting24, 24u);
    model::ArchiveWriter out;
    p.write(out);
    EXPECT_EQ(out.bytes(), bytes);
}

// The day records of both handhelds, at the current version and at the last version whose
// day values lack the fourteen measurements.
TEST(HandheldUserFiles, DaysReadWithOrWithoutMeasurementsByTheProfileVersion)
{
    struct Case
    {
        const char* name;
        std::function<std::vector<std::uint8_t>(std::uint32_t)> bytes;
        std::uint32_t version;
        bool current;
        bool measurements;
        bool meals;
    };
    const Case cases[] = {
        {"diet, current", test::handTandryUser, 376, true, true, true},
        {"diet, 374", test::handTandryUser, 374, false, true, true},
        {"diet, 373", test::handTandryUser, 373, false, false, true},
        {"workout, current", test::handKorvelUser, 302, true, true, false},
        {"workout, 301", test::handKorvelUser, 301, false, true, false},
        {"workout, 300", test::handKorvelUser, 300, false, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const auto bytes = c.bytes(c.version);
        model::HealthEntry values;
        std::vector<model::WorkoutEntry> workouts;
        std::string note;
        std::vector<std::uint8_t> again;
        if (c.meals) {
            auto r = TandryUser::parse(bytes, "u");
            ASSERT_TRUE(r.ok()) << r.error().message();
            ASSERT_EQ(r.value().days.size(), 1u);
            const TandryDay& d = r.value().days[0];
            EXPECT_EQ(d.date, 1262304000);
            ASSERT_EQ(d.meals.size(), 1u);
            EXPECT_EQ(d.meals[0].time, 1262332800);
            ASSERT_EQ(d.meals[0].entries.size(), 2u);
            EXPECT_EQ(d.meals[0].entries[1].food, 1123);
            EXPECT_EQ(d.meals[0].entries[1].amount, 0.5f);
            values = d.values;
            workouts = d.workouts;
            note = d.note;
            again = r.value().serialize();
        } else {
            auto r = KorvelUser::parse(bytes, "u");
            ASSERT_TRUE(r.ok()) << r.error().message();
            ASSERT_EQ(r.value().days.size(), 1u);
            EXPECT_EQ(r.value().days[0].date, 1262304000);
            values = r.value().days[0].values;
            workouts = r.value().days[0].workouts;
            note = r.value().days[0].note;
            again = r.value().serialize();
        }
        EXPECT_EQ(values.wakeTime, 1262329200);
        EXPECT_EQ(values.bmi, 24.4f);
        EXPECT_EQ(values.temperature, 36.6f);
        EXPECT_EQ(values.vo2Max, 45.0f);
        EXPECT_EQ(values.mood, 3);
        EXPECT_EQ(values.measurements[13], c.measurements ? 43.0f : 0.0f);
        ASSERT_EQ(values.variables.size(), 1u);
        EXPECT_EQ(values.variables[0].text, "mg");
        EXPECT_EQ(values.variables[0].time, 1262336400);
        ASSERT_EQ(workouts.size(), 1u);
        EXPECT_EQ(workouts[0].routine, 4);
        EXPECT_EQ(workouts[0].notes, "easy");
        ASSERT_EQ(workouts[0].exercises.size(), 1u);
        ASSERT_EQ(workouts[0].exercises[0].values.size(), 2u);
        EXPECT_EQ(workouts[0].exercises[0].values[1].value, "slow");
        EXPECT_EQ(note, c.meals ? "good day" : "legs");
        if (c.current) {
            EXPECT_EQ(again, bytes);
        }
    }
}

TEST(HandheldSharedFiles, HandMadeFilesReadAndWriteBackUnchanged)
{
    const auto tandryBytes = test::handTandryShared(376);
    auto t = TandryShared::parse(tandryBytes, "tandry.db");
    ASSERT_TRUE(t.ok()) << t.error().message();
    EXPECT_EQ(t.value().header, "TD");
    EXPECT_EQ(t.value().counters, (std::array<std::uint32_t, 6>{70002, 8, 3, 6, 7, 0}));
    EXPECT_EQ(t.value().currentUser, 1);
    EXPECT_EQ(t.value().userNames, (std::vector<std::string>{"Ann", "Bob"}));
    ASSERT_EQ(t.value().foods.size(), 1u);
    EXPECT_EQ(t.value().foods[0].name, "Oats");
    const DefinitionLists& d = t.value().definitions;
    ASSERT_EQ(d.fields.size(), 2u);
    EXPECT_EQ(d.fields[1].kind, 1);
    ASSERT_EQ(d.exercises.size(), 1u);
    EXPECT_EQ(d.exercises[0].fields, (std::vector<std::int32_t>{1, 2}));
    ASSERT_EQ(d.routines.size(), 1u);
    EXPECT_EQ(d.routines[0].calories, 300);
    ASSERT_EQ(d.variables.size(), 1u);
    EXPECT_EQ(d.variables[0].askNumber, 0);

    const auto korvelBytes = test::handKorvelShared(302);
    auto k = KorvelShared::parse(korvelBytes, "korvel.dwb");
    ASSERT_TRUE(k.ok()) << k.error().message();
    EXPECT_EQ(k.value().counters, (std::array<std::uint32_t, 4>{3, 6, 7, 8}));
    EXPECT_EQ(k.value().userNames, (std::vector<std::string>{"Ann"}));
    EXPECT_EQ(k.value().definitions.variables[0].name, "Vitamin C");

    // Any version is read; writing always stamps the current one.
    auto old = TandryShared::parse(test::handTandryShared(375), "tandry.db");
    ASSERT_TRUE(old.ok());
    EXPECT_EQ(old.value().version, 375u);
    EXPECT_EQ(old.value().serialize(), tandryBytes);
}

TEST(HandheldSharedFiles, DefinitionListsAreStoredAsTheUserDatabaseStoresThem)
{
    auto t = TandryShared::parse(test::handTandryShared(376), "tandry.db");
    ASSERT_TRUE(t.ok());
    model::SharedData desktop;
    desktop.fields = t.value().definitions.fields;
    desktop.exercises = t.value().definitions.exercises;
    desktop.routines = t.value().definitions.routines;
    desktop.variables = t.value().definitions.variables;
    const auto velmoraDb = desktop.serialize();
    const auto lists = test::handDefinitions();
    ASSERT_GE(velmoraDb.size(), lists.size());
    EXPECT_TRUE(
        std::equal(lists.begin(), lists.end(), velmoraDb.end() - std::ptrdiff_t(lists.size())));
}

// Damaged files are refused with the file's name and the offset of the bad field, before any
// allocation that a count could make huge.
TEST(HandheldFiles, DamagedFilesReportFileAndOffset)
{
    using Parse = std::function<model::FileError(const std::vector<std::uint8_t>&)>;
    const auto errorOf = [](auto result) {
        return result.ok() ? model::FileError{} : result.error();
    };
    const Parse tandryShared = [&](const auto& b) { return errorOf(TandryShared::parse(b, "f")); };
    const Parse tandryUser = [&](const auto& b) { return errorOf(TandryUser::parse(b, "f")); };
    const Parse korvelShared = [&](const auto& b) { return errorOf(KorvelShared::parse(b, "f")); };
    const Parse korvelUser = [&](const auto& b) { return errorOf(KorvelUser::parse(b, "f")); };

    const std::size_t profileSize = test::handTandryProfile(376).size();
    const std::size_t korvelProfileSize = test::handKorvelProfile(302).size();
    // The food count of tandry.db: version, "TD", six counters, current user, two names.
    const std::size_t foodCountAt = 4 + 3 + 24 + 1 + 1 + 4 + 4;
    auto hugeFoods = test::handTandryShared(376);
    hugeFoods[foodCountAt + 3] = 0x7F;
    auto cutName = test::handTandryShared(376);
    cutName.resize(4 + 3 + 24 + 1 + 1 + 2);
    auto negativeDays = Bytes().append(test::handKorvelProfile(302)).u32(0xFFFFFFFF).bytes();
    auto hugeDays = Bytes().append(test::handTandryProfile(376)).u32(1000).bytes();
    auto hugeText = Bytes().u32(302).u8(0xFF).u16(0xFFFF).u32(0x7FFFFFFF).bytes();

    struct Case
    {
        const char* name;
        Parse parse;
        std::vector<std::uint8_t> bytes;
        model::FileErrorCode code;
        std::size_t offset;
    };
    const Case cases[] = {
        {"huge food count", tandryShared, hugeFoods, model::FileErrorCode::BadCount, foodCountAt},
        {"name cut short", tandryShared, cutName, model::FileErrorCode::BadLength, 4 + 3 + 24 + 2},
        {"day count beyond the bytes", tandryUser, hugeDays, model::FileErrorCode::BadCount,
         profileSize},
        {"negative day count", korvelUser, negativeDays, model::FileErrorCode::BadCount,
         korvelProfileSize},
        {"text length beyond the bytes", korvelShared, hugeText, model::FileErrorCode::BadLength,
         4},
        {"empty diet user file", tandryUser, {}, model::FileErrorCode::UnexpectedEnd, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const model::FileError e = c.parse(c.bytes);
        EXPECT_EQ(e.code, c.code);
        EXPECT_EQ(e.file, "f");
        EXPECT_EQ(e.offset, c.offset);
    }
}
