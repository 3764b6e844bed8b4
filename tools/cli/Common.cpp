#include "Command.h"

#include <charconv>
#include <cstdio>

#include "model/DataLocations.h"
#include "model/DateText.h"
#include "model/FileDates.h"
#include "model/FileKinds.h"
#include "model/FolderLock.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "platform/Console.h"

namespace velmora::cli {

bool wantsHelp(const std::vector<std::string>& args)
{
    for (const auto& a : args)
        if (a == "--help" || a == "-h")
            return true;
    return false;
}

int fail(const std::string& message)
{
    std::fprintf(stderr, "velmora-cli: %s\n", message.c_str());
    return 1;
}

int usage(const std::string& help)
{
    std::fputs(help.c_str(), stderr);
    return 2;
}

int printHelp(const std::string& help)
{
    std::fputs(help.c_str(), stdout);
    return 0;
}

std::string kindList()
{
    std::string out;
    for (const model::FileKindInfo& k : model::fileKinds()) {
        if (!out.empty())
            out += ", ";
        out += std::string(k.name) + " (" + std::string(k.description) + ")";
    }
    return out;
}

namespace fs = std::filesystem;

fs::path programFolder(const char* argv0)
{
    return runningProgram(argv0).parent_path();
}

std::optional<model::CalendarDate> parseIsoDate(const std::string& text)
{
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    auto number = [&](std::size_t at, std::size_t length, int& out) {
        const char* first = text.data() + at;
        const auto [end, ec] = std::from_chars(first, first + length, out);
        return ec == std::errc() && end == first + length;
    };
    model::CalendarDate d;
    if (!number(0, 4, d.year) || !number(5, 2, d.month) || !number(8, 2, d.day))
        return std::nullopt;
    static constexpr int Days[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (d.month < 1 || d.month > 12 || d.day < 1 || d.day > Days[d.month - 1])
        return std::nullopt;
    const bool leap = (d.year % 4 == 0 && d.year % 100 != 0) || d.year % 400 == 0;
    if (d.month == 2 && d.day == 29 && !leap)
        return std::nullopt;
    return d;
}

bool takeUserDataOptions(std::vector<std::string>& args, UserDataOptions& options)
{
    std::vector<std::string> rest;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--data-dir" || a == "--foods" || a == "--user" || a == "--from" || a == "--to") {
            if (i + 1 >= args.size())
                return false;
            const std::string& v = args[++i];
            if (a == "--data-dir") {
                options.dataDir = model::pathFromUtf8(v);
            } else if (a == "--foods") {
                options.foods = model::pathFromUtf8(v);
            } else if (a == "--user") {
                options.user = v;
            } else {
                auto date = parseIsoDate(v);
                if (date && !model::dateFits(*date)) {
                    // 1969-12-31 would be stored as a day of 2106: refused, never wrapped.
                    options.badDateOutOfRange = true;
                    date.reset();
                }
                (a == "--from" ? options.from : options.to) = date;
                if (!date)
                    options.badDate = v;
            }
        } else {
            rest.push_back(a);
        }
    }
    args = std::move(rest);
    return true;
}

int checkDates(const UserDataOptions& options)
{
    if (options.badDate.empty())
        return 0;
    if (options.badDateOutOfRange) {
        const auto iso = [](const model::CalendarDate& d) {
            char text[16];
            std::snprintf(text, sizeof text, "%04d-%02d-%02d", d.year, d.month, d.day);
            return std::string(text);
        };
        std::fprintf(stderr,
                     "velmora-cli: \"%s\" is outside the dates the journal files can hold (%s "
                     "to %s)\n",
                     options.badDate.c_str(), iso(model::firstDateThatFits()).c_str(),
                     iso(model::lastDateThatFits()).c_str());
        return 2;
    }
    std::fprintf(stderr, "velmora-cli: \"%s\" is not a date of the form YYYY-MM-DD\n",
                 options.badDate.c_str());
    return 2;
}

int takeDataFolder(const fs::path& dir, model::FolderLock& lock)
{
    const model::FolderLock::Attempt attempt = lock.acquire(dir);
    if (attempt.outcome != model::FolderLock::Outcome::HeldByOther)
        return 0;
    return fail("the data folder \"" + dir.string() + "\" is in use by Velmora (" +
                model::FolderLock::holderText(attempt.holder) + "); nothing was changed");
}

void reportKeptVersions(model::Store& store)
{
    for (const model::KeptVersion& kept : store.files().takeKeptVersions())
        fail(model::keptVersionText(kept));
}

int loadUserStore(const UserDataOptions& options, const char* argv0, model::Store& store,
                  model::FolderLock* lock)
{
    model::DataSearch search;
    search.dataDirOption = options.dataDir;
    search.foodsOption = options.foods;
    search.programDir = programFolder(argv0);
    search.perUserDir = model::defaultPerUserDataDir();
    search.installedDirs = model::defaultInstalledDataDirs();
    const model::DataLocations where = model::findDataLocations(search);
    if (lock)
        if (int status = takeDataFolder(where.dataDir, *lock); status != 0)
            return status;
    store.setPaths(where.foodsToLoad(), where.dataDir);
    const model::Store::LoadReport report = store.load();
    auto refuse = [](const std::string& line) {
        std::fprintf(stderr, "velmora-cli: %s\n", line.c_str());
        return 2;
    };
    if (report.foodsMissing || !store.loaded())
        return refuse(store.foodsPath().string() + ": the food database cannot be read");
    if (!report.errors.empty())
        return refuse(report.errors.front().message());
    if (!options.user.empty() && options.user != model::cp1252ToUtf8(store.currentUserName())) {
        std::size_t k = 0;
        const auto& names = store.shared.userNames;
        while (k < names.size() && model::cp1252ToUtf8(names[k]) != options.user)
            ++k;
        if (k == names.size())
            return refuse("there is no user named \"" + options.user + "\"");
        store.shared.currentUser = static_cast<std::uint8_t>(k);
        model::FileError error;
        if (!store.loadCurrentUser(&error) && error.code != model::FileErrorCode::NotFound)
            return refuse(error.message());
    }
    return 0;
}

} // namespace velmora::cli
