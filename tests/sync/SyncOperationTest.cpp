#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>

#include "SyncSamples.h"
#include "model/DateText.h"
#include "support/TempDir.h"
#include "support/TransferBytes.h"
#include "sync/logic/JournalTransfer.h"
#include "sync/logic/SyncOperation.h"

using namespace velmora;
using namespace velmora::sync;
namespace fs = std::filesystem;

namespace {

// A data folder with a "TandryFiles" folder, and the sample desktop's records.
struct Fixture
{
    test::TempDir dir;
    model::NutrientCatalogue catalogue = test::syncCatalogue();
    test::Desktop desktop = test::sampleDesktop(catalogue);

    Fixture() { fs::create_directory(folder()); }
    fs::path folder() const { return handheldFolder(dir.path()); }
    void put(const std::string& name, const std::vector<std::uint8_t>& bytes) const
    {
        test::writeBytes(folder() / name, bytes);
    }
    SyncRequest request(Handheld h, SyncDirection d, std::size_t user) const
    {
        SyncRequest r;
        r.handheld = h;
        r.direction = d;
        r.dataDir = dir.path();
        r.userFile = dir.path() / "Dana.db";
        r.handheldUser = user;
        r.now = model::CalendarDate{2026, 5, 1}.toTime() + 14 * 3600 + 3 * 60 + 22;
        return r;
    }
    SyncOperation prepare(Handheld h, SyncDirection d, std::size_t user = 0) const
    {
        return SyncOperation::prepare(request(h, d, user), desktop.shared, desktop.journal,
                                      catalogue);
    }
    // Every file below the data folder with its bytes, to prove that nothing changed.
    std::map<fs::path, std::vector<std::uint8_t>> snapshot() const
    {
        std::map<fs::path, std::vector<std::uint8_t>> files;
        for (const auto& e : fs::recursive_directory_iterator(dir.path()))
            files[e.path()] =
                e.is_regular_file() ? test::readBytes(e.path()) : std::vector<std::uint8_t>{};
        return files;
    }
    std::vector<std::uint8_t> desktopBytes() const
    {
        auto bytes = desktop.shared.serialize();
        const auto user = desktop.journal.serialize();
        bytes.insert(bytes.end(), user.begin(), user.end());
        return bytes;
    }
};

std::vector<std::uint8_t> versionWord(std::uint32_t v)
{
    return test::Bytes().u32(v).bytes();
}

} // namespace

// The version rule: only the handheld's own version passes, a missing shared file passes (and
// the import then fails on the missing user file); a refused import changes nothing at all.
TEST(SyncImport, VersionRuleAndRefusalsChangeNothing)
{
    using R = SyncOperation::Refusal;
    struct Case
    {
        const char* name;
        Handheld handheld;
        std::optional<std::vector<std::uint8_t>> sharedFile;
        R refusal;
        std::uint32_t version;
        model::FileErrorCode code;
    };
    const auto none = model::FileErrorCode::CannotOpen;
    const Case cases[] = {
        {"diet 375", Handheld::Tandry, versionWord(375), R::Version, 375, none},
        {"diet 377", Handheld::Tandry, versionWord(377), R::Version, 377, none},
        {"workout file with the diet version", Handheld::Korvel, versionWord(376), R::Version, 376,
         none},
        {"workout 301", Handheld::Korvel, versionWord(301), R::Version, 301, none},
        {"diet file missing", Handheld::Tandry, std::nullopt, R::File, 376,
         model::FileErrorCode::NotFound},
        {"workout file missing", Handheld::Korvel, std::nullopt, R::File, 302,
         model::FileErrorCode::NotFound},
        {"diet file of three bytes", Handheld::Tandry, std::vector<std::uint8_t>{0x78, 1, 0},
         R::File, 0, model::FileErrorCode::UnexpectedEnd},
        {"diet version right, rest damaged", Handheld::Tandry, versionWord(376), R::File, 376,
         model::FileErrorCode::UnexpectedEnd},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Fixture f;
        if (c.sharedFile)
            f.put(c.handheld == Handheld::Tandry ? "tandry.db" : "korvel.dwb", *c.sharedFile);
        const auto before = f.snapshot();
        const auto desktopBefore = f.desktopBytes();

        SyncOperation op = f.prepare(c.handheld, SyncDirection::Import);
        EXPECT_EQ(op.refusal(), c.refusal);
        if (c.refusal == R::Version) {
            EXPECT_EQ(op.foundVersion(), c.version);
            EXPECT_EQ(op.refusalText(), handheldVersionText());
        } else {
            EXPECT_EQ(op.fileError().code, c.code);
        }
        EXPECT_FALSE(op.apply(f.desktop.shared, f.desktop.journal).ok());
        EXPECT_EQ(f.snapshot(), before);
        EXPECT_EQ(f.desktopBytes(), desktopBefore);
    }
}

TEST(SyncImport, KeepsADatedCopyThenReplacesTheDesktopRecords)
{
    Fixture f;
    f.put("tandry.db", test::handTandryShared(376));
    f.put("Bob.db", test::handTandryUser(376));
    const auto oldShared = f.desktop.shared.serialize();
    const auto oldJournal = f.desktop.journal.serialize();

    SyncOperation op = f.prepare(Handheld::Tandry, SyncDirection::Import, 1);
    ASSERT_FALSE(op.refused()) << op.refusalText();
    EXPECT_EQ(op.summary().handheldUser, "Bob");
    EXPECT_EQ(op.summary().customFoods.before, 2u);
    EXPECT_EQ(op.summary().customFoods.after, 1u);
    // Bob's day, and the 10th and first 12th for the notes the handheld does not carry.
    EXPECT_EQ(op.summary().days.after, 3u);
    const fs::path copy = f.dir.path() / "Before sync 2026-05-01 140322";
    EXPECT_EQ(op.copyFolder(), copy);
    EXPECT_EQ(op.question(), syncQuestionText(Handheld::Tandry, SyncDirection::Import) +
                                 "\n\nA copy of your current data is kept in the folder \"Before "
                                 "sync 2026-05-01 140322\" in your data folder.");
    EXPECT_FALSE(fs::exists(copy)); // nothing happens before apply()

    ASSERT_TRUE(op.apply(f.desktop.shared, f.desktop.journal).ok());
    EXPECT_EQ(test::readBytes(copy / "velmora.db"), oldShared);
    EXPECT_EQ(test::readBytes(copy / "Dana.db"), oldJournal);
    ASSERT_EQ(f.desktop.shared.customFoods.size(), 1u);
    EXPECT_EQ(f.desktop.shared.customFoods[0].name, "Oats");
    EXPECT_EQ(f.desktop.shared.fields.size(), 2u);
    EXPECT_EQ(f.desktop.shared.fields[1].name, "Comment");
    EXPECT_EQ(f.desktop.journal.days[0].notes[2], "good day");
    // One run per preparation.
    EXPECT_FALSE(op.apply(f.desktop.shared, f.desktop.journal).ok());

    // A second import in the same second keeps its own copy.
    SyncOperation again = f.prepare(Handheld::Tandry, SyncDirection::Import, 1);
    EXPECT_EQ(again.copyFolder().filename(), "Before sync 2026-05-01 140322 (2)");
}

// "Sync" reads only the export choice: unchecked, also when neither choice is checked, imports.
// Through the files: an export onto the handheld and an import back give the desktop its records
// again, with the days at 01:00; the handheld keeps its users, header and profile settings.
TEST(SyncExport, ExportThenImportThroughTheFolder)
{
    for (Handheld h : {Handheld::Tandry, Handheld::Korvel}) {
        const bool diet = h == Handheld::Tandry;
        SCOPED_TRACE(diet ? "Tandry" : "Korvel");
        Fixture f;
        f.put(diet ? "tandry.db" : "korvel.dwb",
              diet ? test::handTandryShared(376) : test::handKorvelShared(302));
        f.put(diet ? "Ann.db" : "Ann.dwb",
              diet ? test::handTandryUser(376) : test::handKorvelUser(302));
        const test::Desktop original = f.desktop;
        const auto desktopBefore = f.desktopBytes();

        SyncOperation out = f.prepare(h, SyncDirection::Export, 0);
        ASSERT_FALSE(out.refused()) << out.refusalText();
        EXPECT_EQ(out.question(), syncQuestionText(h, SyncDirection::Export));
        ASSERT_TRUE(out.apply(f.desktop.shared, f.desktop.journal).ok());
        EXPECT_EQ(f.desktopBytes(), desktopBefore);

        if (diet) {
            auto shared =
                model::TandryShared::parse(test::readBytes(f.folder() / "tandry.db"), "t");
            auto user = model::TandryUser::parse(test::readBytes(f.folder() / "Ann.db"), "u");
            ASSERT_TRUE(shared.ok() && user.ok());
            EXPECT_EQ(shared.value().header, "TD");
            EXPECT_EQ(shared.value().userNames, (std::vector<std::string>{"Ann", "Bob"}));
            EXPECT_EQ(shared.value().currentUser, 0);
            EXPECT_EQ(shared.value().foods.size(), 2u);
            EXPECT_EQ(user.value().profile.setting25, 25u);   // kept from the handheld
            EXPECT_EQ(user.value().profile.goals[0], 2100.0); // energy goal from the desktop
            EXPECT_EQ(user.value().days.size(), 4u);
        } else {
            auto shared =
                model::KorvelShared::parse(test::readBytes(f.folder() / "korvel.dwb"), "k");
            auto user = model::KorvelUser::parse(test::readBytes(f.folder() / "Ann.dwb"), "u");
            ASSERT_TRUE(shared.ok() && user.ok());
            EXPECT_EQ(shared.value().header, "KV");
            EXPECT_EQ(user.value().profile.setting24, 24u);
            // The desktop's counters of fields, exercises, routines and variables; the 10th and
            // the second 12th carry workout data, the 11th and the first 12th not.
            EXPECT_EQ(shared.value().counters, (std::array<std::uint32_t, 4>{13, 22, 31, 5}));
            ASSERT_EQ(user.value().days.size(), 2u);
            EXPECT_EQ(user.value().days[0].note, "f1");
        }

        SyncOperation back = f.prepare(h, SyncDirection::Import, 0);
        ASSERT_FALSE(back.refused()) << back.refusalText();
        ASSERT_TRUE(back.apply(f.desktop.shared, f.desktop.journal).ok());
        EXPECT_EQ(test::definitionBytes(f.desktop.shared), test::definitionBytes(original.shared));
        if (diet) {
            EXPECT_EQ(f.desktop.journal.user.goalValues, original.journal.user.goalValues);
            ASSERT_EQ(f.desktop.shared.customFoods.size(), 2u);
            for (std::size_t i = 0; i < 2; ++i) {
                const model::FoodItem& back = f.desktop.shared.customFoods[i];
                EXPECT_EQ(back.number, original.shared.customFoods[i].number);
                EXPECT_EQ(back.servingWeight, original.shared.customFoods[i].servingWeight);
                EXPECT_EQ(back.values, original.shared.customFoods[i].values);
            }
        }
        ASSERT_EQ(f.desktop.journal.days.size(), original.journal.days.size());
        for (std::size_t i = 0; i < original.journal.days.size(); ++i) {
            model::JournalDay expected = original.journal.days[i];
            if (diet)
                expected.date = oneInTheMorning(expected.date);
            EXPECT_EQ(test::dayBytes(f.desktop.journal.days[i]), test::dayBytes(expected))
                << "day " << i;
        }
    }
}

TEST(SyncExport, RefusalsWriteNothing)
{
    using R = SyncOperation::Refusal;
    struct Case
    {
        const char* name;
        Handheld handheld;
        std::vector<std::uint8_t> sharedFile;
        std::vector<std::uint8_t> userFile;
        bool lateDay;
        R refusal;
    };
    const auto usersNone = [] {
        model::TandryShared s;
        return s.serialize();
    }();
    auto damagedUser = test::handTandryUser(376);
    damagedUser.resize(100);
    auto damagedShared = test::handKorvelShared(302);
    damagedShared.resize(20);
    const Case cases[] = {
        {"a day after 2038-01-19",
         Handheld::Tandry,
         test::handTandryShared(376),
         {},
         true,
         R::Dates},
        {"a workout day after 2038-01-19",
         Handheld::Korvel,
         test::handKorvelShared(302),
         {},
         true,
         R::Dates},
        {"no handheld users", Handheld::Tandry, usersNone, {}, false, R::NoUsers},
        {"damaged user file", Handheld::Tandry, test::handTandryShared(376), damagedUser, false,
         R::File},
        {"damaged shared file", Handheld::Korvel, damagedShared, {}, false, R::File},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Fixture f;
        const bool diet = c.handheld == Handheld::Tandry;
        f.put(diet ? "tandry.db" : "korvel.dwb", c.sharedFile);
        if (!c.userFile.empty())
            f.put("Ann.db", c.userFile);
        if (c.lateDay) {
            model::JournalDay late;
            late.date = 2147483648; // 2038-01-19 03:14:08 UTC
            late.workouts = {{30, 0, 2147483648, {}, ""}};
            f.desktop.journal.days.push_back(late);
        }
        const auto before = f.snapshot();
        SyncOperation op = f.prepare(c.handheld, SyncDirection::Export, 0);
        EXPECT_EQ(op.refusal(), c.refusal) << op.refusalText();
        if (c.lateDay) {
            EXPECT_EQ(op.refusedDays(), (std::vector<model::TimeT>{2147483648}));
        }
        EXPECT_FALSE(op.apply(f.desktop.shared, f.desktop.journal).ok());
        EXPECT_EQ(f.snapshot(), before);
    }
}

TEST(TransferStores, EmptyNameListsUnsafeNamesAndMissingFolders)
{
    test::TempDir dir;
    const fs::path folder = handheldFolder(dir.path());

    // Without the folder: reads find nothing, writes fail.
    TandryStore missing(folder);
    missing.shared.userNames = {"Ann"};
    EXPECT_EQ(missing.readVersion().value(), 376u);
    EXPECT_EQ(KorvelStore(folder).readVersion().value(), 302u);
    EXPECT_EQ(missing.writeShared(false).error().code, model::FileErrorCode::CannotWrite);
    EXPECT_EQ(missing.writeUser(false).error().code, model::FileErrorCode::CannotWrite);
    EXPECT_FALSE(fs::exists(folder));
    fs::create_directory(folder);

    // No names: the user of index 0 is the empty name, whose file is ".db"; nothing is written.
    TandryStore empty(folder);
    empty.user.days.resize(3);
    auto r = empty.readUser(4);
    EXPECT_EQ(r.error().code, model::FileErrorCode::NotFound);
    EXPECT_EQ(fs::path(r.error().file).filename(), ".db");
    EXPECT_TRUE(empty.user.days.empty());
    test::writeBytes(folder / ".db", test::handTandryUser(376));
    EXPECT_TRUE(empty.readUser(4).ok());
    EXPECT_EQ(empty.user.days.size(), 1u);
    EXPECT_EQ(empty.writeUser(false).error().code, model::FileErrorCode::BadValue);
    EXPECT_EQ(test::readBytes(folder / ".db"), test::handTandryUser(376));

    // A workout store without names gets its default definitions before the file is looked for.
    KorvelStore korvel(folder);
    EXPECT_EQ(korvel.readUser(0).error().code, model::FileErrorCode::NotFound);
    EXPECT_EQ(korvel.shared.definitions.fields.size(), 9u);
    ASSERT_EQ(korvel.shared.definitions.exercises.size(), 25u);
    EXPECT_EQ(korvel.shared.definitions.exercises[13].name, "Running");
    EXPECT_EQ(korvel.shared.counters, (std::array<std::uint32_t, 4>{10, 26, 1, 0}));

    // Handheld names never reach outside the folder.
    for (const char* name : {"../Ann", "a/b", "..", "CON", "x\\y"}) {
        SCOPED_TRACE(name);
        TandryStore s(folder);
        s.shared.userNames = {name};
        EXPECT_EQ(s.readUser(0).error().code, model::FileErrorCode::UnsafeName);
        EXPECT_EQ(s.writeUser(false).error().code, model::FileErrorCode::UnsafeName);
    }
    EXPECT_FALSE(fs::exists(dir.path() / "Ann.db"));

    // A write with release empties what it wrote.
    TandryStore full(folder);
    ASSERT_TRUE(full.readShared().ok());
    full.shared = model::TandryShared::parse(test::handTandryShared(376), "t").take();
    full.user = model::TandryUser::parse(test::handTandryUser(376), "u").take();
    ASSERT_TRUE(full.writeUser(true).ok());
    ASSERT_TRUE(full.writeShared(true).ok());
    EXPECT_TRUE(full.user.days.empty());
    EXPECT_TRUE(full.shared.foods.empty());
    EXPECT_TRUE(full.shared.definitions.fields.empty());
    EXPECT_EQ(test::readBytes(folder / "tandry.db"), test::handTandryShared(376));
    EXPECT_EQ(test::readBytes(folder / "Bob.db"), test::handTandryUser(376));
}
