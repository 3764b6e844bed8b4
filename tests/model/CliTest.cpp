#include <gtest/gtest.h>

#include <algorithm>
#include <unistd.h> // getpid, also in MinGW
#include <fstream>
#include <sstream>
#include <string>

#include "model/FolderLock.h"
#include "model/UserDatabase.h"
#include "support/Builders.h"
#include "support/Fixtures.h"
#include "support/Shell.h"
#include "support/TempDir.h"
#include "support/TransferBytes.h"

using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

namespace {

struct CliRun
{
    int exitCode;
    std::string out;
    std::string err;
};

std::string quote(const std::string& s)
{
    return shellQuote(s);
}

std::string slurp(const fs::path& p)
{
    std::ifstream in(p, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

CliRun cli(const TempDir& dir, const std::string& args, const fs::path& program = VELMORA_CLI)
{
    const fs::path out = dir / "stdout.txt";
    const fs::path err = dir / "stderr.txt";
    const std::string command = quote(fs::path(program).make_preferred().string()) + " " + args +
                                " >" + quote(out.string()) + " 2>" + quote(err.string());
    CliRun r{runShell(command), slurp(out), slurp(err)};
    fs::remove(out);
    fs::remove(err);
    return r;
}

std::vector<fs::path> filesStartingWith(const TempDir& dir, const std::string& prefix)
{
    std::vector<fs::path> out;
    for (const auto& e : fs::directory_iterator(dir.path()))
        if (e.path().filename().string().starts_with(prefix))
            out.push_back(e.path());
    return out;
}

const fs::path Canonical = fs::path(VELMORA_TEST_DATA_DIR) / "canonical";

} // namespace

TEST(Cli, CanonicalFixturesAreTheHandMadeImages)
{
    EXPECT_EQ(readBytes(Canonical / "foods.db"), handMadeFoods());
    EXPECT_EQ(readBytes(Canonical / "velmora.db"), handMadeShared());
    EXPECT_EQ(readBytes(Canonical / "Bert.db"), handMadeUserFile());
}

// Every kind: rewrite reproduces the file and dump shows it as JSON with UTF-8 texts. A damaged
// file is refused by both with its name and the offset of the damage, leaving the output alone
// (the readers' offsets are checked with each file kind; one stands for them here).
TEST(Cli, KindsRewriteDumpAndRefuseDamage)
{
    TempDir dir;
    SharedData quoted;
    quoted.userNames = {"Ren\xE9\"e"};
    const std::pair<const char*, std::vector<std::uint8_t>> files[] = {
        {"foods", handMadeFoods()},          {"shared", quoted.serialize()},
        {"user", handMadeUserFile()},        {"tandry", handTandryShared(376)},
        {"tandry-user", handTandryUser(376)}, {"korvel", handKorvelShared(302)},
        {"korvel-user", handKorvelUser(302)},
    };
    const std::vector<const char*> inDump[] = {
        {"\"value\": 12.6"},
        {"\"Ren\xC3\xA9\\\"e\"", "\"nextExerciseField\": 1"},
        {"\"temperature\": 36.6,", "\"vo2Max\": 45,", "\"date\": \"2020-01-02T00:00:00Z\"",
         "\"amountIn100g\": 1.5"},
        {"\"name\": \"Oats\""},
        {"\"1969-12-31T00:00:00Z\""},
        {"\"nextExerciseField\": 3"},
        {"\"note\": \"legs\""},
    };
    const fs::path in = dir / "in.db", out = dir / "out.db", bad = dir / "bad.db";
    for (std::size_t i = 0; i < std::size(files); ++i) {
        const auto& [kind, whole] = files[i];
        SCOPED_TRACE(kind);
        writeBytes(in, whole);
        CliRun r = cli(dir, std::string("rewrite ") + kind + " " + quote(in.string()) + " " +
                                quote(out.string()));
        ASSERT_EQ(r.exitCode, 0) << r.err;
        EXPECT_EQ(readBytes(out), whole);

        r = cli(dir, std::string("dump ") + kind + " " + quote(in.string()));
        ASSERT_EQ(r.exitCode, 0) << r.err;
        EXPECT_EQ(r.out.front(), '{');
        for (const char* text : inDump[i])
            EXPECT_NE(r.out.find(text), std::string::npos) << text << " in " << r.out;
    }

    auto cutName = handKorvelShared(302);
    cutName.resize(27); // inside the name "Ann", whose length byte is at 25
    writeBytes(bad, cutName);
    writeBytes(out, {9, 9, 9});
    for (const std::string command : {"rewrite", "dump"}) {
        const CliRun r = cli(dir, command + " korvel " + quote(bad.string()) +
                                      (command == "rewrite" ? " " + quote(out.string()) : ""));
        EXPECT_EQ(r.exitCode, 1) << command;
        EXPECT_TRUE(r.out.empty()) << command;
        EXPECT_NE(r.err.find(bad.string() + " is damaged at byte 25"), std::string::npos)
            << command << ": " << r.err;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
    }
    EXPECT_EQ(readBytes(out), (std::vector<std::uint8_t>{9, 9, 9}));
    const std::pair<const char*, int> refused[] = {{"rewrite shared none.db out.db", 1},
                                                   {"rewrite nonsense a b", 2}};
    for (const auto& [args, exitCode] : refused)
        EXPECT_EQ(cli(dir, args).exitCode, exitCode) << args;
}

TEST(Cli, ResaveLoadsAndSavesTheDataFolder)
{
    TempDir dir;
    fs::copy(Canonical, dir.path(), fs::copy_options::recursive);
    CliRun r = cli(dir, "resave --data-dir " + quote(dir.path().string()) + " --foods " +
                            quote((dir / "foods.db").string()));
    ASSERT_EQ(r.exitCode, 0) << r.err;
    // The fixtures are already normalised: both files come back unchanged.
    EXPECT_EQ(readBytes(dir / "velmora.db"), handMadeShared());
    EXPECT_EQ(readBytes(dir / "Bert.db"), handMadeUserFile());

    TempDir empty;
    writeBytes(empty / "foods.db", handMadeFoods());
    r = cli(empty, "resave --data-dir " + quote(empty.path().string()));
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_TRUE(fs::exists(empty / "velmora.db"));
    EXPECT_TRUE(fs::exists(empty / "Example User.db"));

    // A data folder without "foods.db" uses the one beside the program, as the program does.
    TempDir nofoods;
    fs::create_directory(nofoods / "bin");
    const fs::path program = VELMORA_CLI;
    fs::copy_file(program, nofoods / "bin" / program.filename());
    // The runtime libraries that a Windows build keeps beside its programs go with it.
    for (const auto& e : fs::directory_iterator(program.parent_path()))
        if (e.path().extension() == ".dll")
            fs::copy_file(e.path(), nofoods / "bin" / e.path().filename());
    writeBytes(nofoods / "bin" / "foods.db", handMadeFoods());
    fs::create_directory(nofoods / "data");
    r = cli(nofoods, "resave --data-dir " + quote((nofoods / "data").string()),
            nofoods / "bin" / program.filename());
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_TRUE(fs::exists(nofoods / "data" / "velmora.db"));

    // A named food database is the only one: when it is missing nothing is loaded or written.
    TempDir named;
    r = cli(named, "resave --data-dir " + quote(named.path().string()) + " --foods " +
                       quote((named / "missing.db").string()));
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_FALSE(fs::exists(named / "velmora.db"));
    r = cli(named, "resave --data-dir " + quote(named.path().string()) + " --foods");
    EXPECT_EQ(r.exitCode, 2);
}

TEST(Cli, ResaveReportsADamagedFileKeepsItAsideAndSavesWhatWasWhole)
{
    TempDir dir;
    fs::copy(Canonical, dir.path(), fs::copy_options::recursive);
    auto damaged = handMadeShared();
    damaged.resize(damaged.size() - 5);
    writeBytes(dir / "velmora.db", damaged);
    const CliRun r = cli(dir, "resave --data-dir " + quote(dir.path().string()));
    EXPECT_NE(r.exitCode, 0);
    EXPECT_NE(r.err.find("velmora.db"), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("moved to"), std::string::npos) << r.err;
    // What is kept aside and what the new file holds are the data folder's; here the tool saves.
    EXPECT_EQ(filesStartingWith(dir, "velmora.db.damaged-").size(), 1u);
    EXPECT_TRUE(SharedData::parse(readBytes(dir / "velmora.db"), "velmora.db").ok());
}

TEST(Cli, HelpForEveryCommand)
{
    TempDir dir;
    for (const char* c :
         {"--help", "rewrite --help", "dump --help", "resave --help", "report --help",
          "export --help", "import-health --help", "sync --help"}) {
        const CliRun r = cli(dir, c);
        EXPECT_EQ(r.exitCode, 0) << c;
        EXPECT_NE(r.out.find("Usage: velmora-cli"), std::string::npos) << c;
    }
}

// The commands that work on one user's journal: their exit codes and what they print or write.
TEST(Cli, JournalCommandsAnswerWithTheirExitCodes)
{
    TempDir dir;
    fs::copy(Canonical, dir.path(), fs::copy_options::recursive);
    const std::string where = " --data-dir " + quote(dir.path().string()) + " --foods " +
                              quote((dir / "foods.db").string());
    std::ofstream(dir / "weigh-ins.csv") << "Date,Weight (kg)\n2020-01-03,80.5\n2020-01-04,abc\n";
    const std::string csv = quote((dir / "weigh-ins.csv").string());
    const std::string out = quote((dir / "export").string());
    const std::string pdf = quote((dir / "report.pdf").string());
#if VELMORA_CLI_PDF
    const int pdfWritten = 0;
#else
    const int pdfWritten = 2; // a build without the graphical part says it cannot paint pages
#endif
    struct Case
    {
        std::string args;
        int exitCode;
        std::string inOut; // printed on standard output
    };
    const Case cases[] = {
        {"report" + where + " --from 2020-01-01 --to 2020-01-31", 0,
         "Nutrient\tAvg\tDaily Goal\tNet\nEnergy\t"},
        {"report" + where + " --from 2020-01-01 --to 2020-01-31 --csv", 0,
         "Nutrient,Avg,Daily Goal,Net"},
        {"report" + where + " --from 2020-02-30 --to 2020-03-01", 2, ""},
        {"report" + where + " --from 1969-12-31 --to 2020-03-01", 2, ""}, // would be 2106
        {"export" + where + " --out " + out + " --to 2106-02-08", 2, ""},
        {"report" + where + " --user Nobody --from 2020-01-01 --to 2020-01-31", 2, ""},
        {"report" + where + " --from 2020-01-01", 2, ""},
        {"report" + where + " --from 2020-01-01 --to 2020-01-31 --pdf " + pdf, pdfWritten, ""},
        {"report" + where + " --from 2020-01-01 --to 2020-01-31 --pdf " +
             quote((dir / "no-such-folder" / "r.pdf").string()),
         2, ""},
        {"report" + where + " --from 2020-01-01 --to 2020-01-31 --csv --pdf " + pdf, 2, ""},
        {"export" + where + " --out " + out, 0, "Exported 1 days (2 servings"},
        {"import-health" + where + " " + csv, 1, "Line 3 skipped"},
        {"import-health" + where + " " + csv + " --yes", 0, "Imported 1 values"},
        {"import-health" + where + " " + csv + " --yes", 0, "Nothing to import"},
        {"import-health" + where + " " + quote((dir / "missing.csv").string()), 2, ""},
    };
    for (const Case& c : cases) {
        const CliRun r = cli(dir, c.args);
        EXPECT_EQ(r.exitCode, c.exitCode) << c.args << "\n" << r.err;
        EXPECT_NE(r.out.find(c.inOut), std::string::npos) << c.args << "\n" << r.out;
    }
    EXPECT_TRUE(fs::exists(dir / "export" / "servings.csv"));
    EXPECT_TRUE(fs::exists(dir / "export" / "daily.csv"));
    EXPECT_EQ(fs::exists(dir / "report.pdf"), pdfWritten == 0);
}

// The commands that write take the data folder as the program does, and a salvage keeps every
// whole day and the good backup.
TEST(Cli, WritingCommandsRespectAnotherProgramAndSalvageKeepsWholeDays)
{
    TempDir dir;
    fs::copy(Canonical, dir.path(), fs::copy_options::recursive);
    const std::string where = " --data-dir " + quote(dir.path().string());
    std::ofstream(dir / "weigh-ins.csv") << "Date,Weight (kg)\n2020-01-03,80.5\n";
    const auto before = readBytes(dir / "Bert.db");
    {
        FolderLock program;
        ASSERT_EQ(program.acquire(dir.path()).outcome, FolderLock::Outcome::Taken);
        for (const std::string& args :
             {"import-health" + where + " " + quote((dir / "weigh-ins.csv").string()) + " --yes",
              "resave" + where}) {
            const CliRun r = cli(dir, args);
            EXPECT_EQ(r.exitCode, 1) << args;
            EXPECT_NE(r.err.find("in use by Velmora (process " + std::to_string(::getpid())),
                      std::string::npos)
                << r.err;
        }
        EXPECT_EQ(readBytes(dir / "Bert.db"), before);
    }

    // A ten-day journal cut short: nine days are saved, the good backup is kept aside.
    UserJournal journal = UserJournal::parse(before, "Bert.db").take();
    journal.days.clear();
    for (int i = 0; i < 10; ++i)
        journal.days.push_back(dayWithMeal(1600000000 + 86400 * i, 0, {{1000, 1.0f}}));
    const auto good = journal.serialize();
    auto cut = good;
    cut.resize(cut.size() - 22);
    writeBytes(dir / "Bert.db.bak", good);
    writeBytes(dir / "Bert.db", cut);
    const CliRun r = cli(dir, "resave" + where);
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("9 of 10 days kept"), std::string::npos) << r.err;
    const auto kept = filesStartingWith(dir, "Bert.db.backup-");
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_NE(r.err.find(kept[0].string()), std::string::npos) << r.err;
}
