#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>

#include "SyncSamples.h"
#include "model/FoodDatabase.h"
#include "support/TempDir.h"
#include "support/TransferBytes.h"
#include "sync/logic/SyncCommand.h"
#include "sync/logic/SyncOperation.h"

using namespace velmora;
using namespace velmora::sync;
namespace fs = std::filesystem;

namespace {

// A data folder as the program leaves it (foods.db, velmora.db, Dana.db) with a handheld folder
// holding the diet and workout files of the handheld users "Ann" (and "Bob").
struct DataFolder
{
    test::TempDir dir;

    DataFolder()
    {
        const model::NutrientCatalogue catalogue = test::syncCatalogue();
        model::FoodDatabase foods;
        foods.setCatalogue(catalogue.entries());
        test::writeBytes(dir / "foods.db", foods.serialize());
        const test::Desktop d = test::sampleDesktop(catalogue);
        test::writeBytes(dir / "velmora.db", d.shared.serialize());
        test::writeBytes(dir / "Dana.db", d.journal.serialize());
        const fs::path folder = handheldFolder(dir.path());
        fs::create_directory(folder);
        test::writeBytes(folder / "tandry.db", test::handTandryShared(376));
        test::writeBytes(folder / "Ann.db", test::handTandryUser(376));
        test::writeBytes(folder / "korvel.dwb", test::handKorvelShared(302));
        test::writeBytes(folder / "Ann.dwb", test::handKorvelUser(302));
    }

    std::map<fs::path, std::vector<std::uint8_t>> snapshot() const
    {
        std::map<fs::path, std::vector<std::uint8_t>> files;
        // The folder's lock file, left empty by every run that took the folder, holds no data.
        for (const auto& e : fs::recursive_directory_iterator(dir.path()))
            if (e.is_regular_file() && e.path().filename() != "velmora.lock")
                files[fs::relative(e.path(), dir.path())] = test::readBytes(e.path());
        return files;
    }
};

std::vector<std::string> words(const std::string& text)
{
    std::istringstream in(text);
    std::vector<std::string> out;
    for (std::string w; in >> w;)
        out.push_back(w);
    return out;
}

} // namespace

TEST(SyncCommand, ExitCodesAndWhatEachRunChanges)
{
    struct Case
    {
        const char* name;
        const char* args; // before the data folder's options
        std::uint32_t tandryVersion;
        int exitCode;
        const char* changed; // files (relative, sorted) that differ afterwards
        bool copyKept;
        std::string errorText;
    };
    const std::string version = handheldVersionText() + "\n";
    const char* const desktopFiles = "Dana.db Dana.db.bak velmora.db velmora.db.bak";
    const Case cases[] = {
        {"import asks and changes nothing", "tandry import", 376, 1, "", false, ""},
        {"import of another version", "tandry import --yes", 375, 3, "", false, version},
        {"import confirmed", "tandry import --yes", 376, 0, desktopFiles, true, ""},
        {"export confirmed", "tandry export --yes", 376, 0,
         "TandryFiles/Ann.db TandryFiles/tandry.db", false, ""},
        {"workout export confirmed", "korvel export --yes", 376, 0,
         "TandryFiles/Ann.dwb TandryFiles/korvel.dwb", false, ""},
        {"unknown handheld", "palm import", 376, 2, "", false, ""},
        {"unknown desktop user", "tandry import --user Zed", 376, 1, "", false,
         "There is no desktop user named \"Zed\".\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        DataFolder f;
        test::writeBytes(handheldFolder(f.dir.path()) / "tandry.db",
                         test::handTandryShared(c.tandryVersion));
        const auto before = f.snapshot();

        std::vector<std::string> args = words(c.args);
        args.insert(args.end(), {"--data-dir", f.dir.path().string(), "--handheld-user", "0"});
        std::ostringstream out, err;
        EXPECT_EQ(runSyncCommand(args, out, err, 1777644202), c.exitCode) << err.str();
        if (!c.errorText.empty()) {
            EXPECT_EQ(err.str(), c.errorText);
        }

        bool copyFound = false;
        std::vector<std::string> changed;
        for (const auto& [path, bytes] : f.snapshot()) {
            if (path.begin()->string().starts_with("Before sync "))
                copyFound = true;
            else if (!before.contains(path) || before.at(path) != bytes)
                changed.push_back(path.generic_string());
        }
        EXPECT_EQ(copyFound, c.copyKept);
        EXPECT_EQ(changed, words(c.changed));
    }
}
