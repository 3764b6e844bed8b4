// velmora-cli import-health [--data-dir DIR] [--user NAME] FILE [--replace] [--yes]
#include "Command.h"

#include <cstdio>
#include <iostream>

#include "export/HealthImport.h"
#include "model/DataFolder.h"
#include "model/FolderLock.h"
#include "model/SafeFile.h"
#include "model/Store.h"
#include "model/TextCodec.h"

namespace velmora::cli {

std::string importHealthHelp()
{
    return "Usage: velmora-cli import-health [--data-dir DIR] [--foods FILE] [--user NAME] FILE\n"
           "                                 [--replace] [--yes]\n"
           "\n"
           "Imports weigh-ins from a CSV file with a date (or date and time) column and any of\n"
           "weight, body fat %, BMI and waist, found by name; units come from the header, the\n"
           "cells or the user's own units. Prints what would change: the new values, the values\n"
           "that would be replaced (only with --replace) and every row that could not be read,\n"
           "with its line number. Nothing is written without --yes.\n"
           "\n"
           "Exit status: 0 imported (or nothing to import); 1 not confirmed (no --yes) or the\n"
           "journal could not be saved; 2 wrong arguments, an unknown user, an unreadable data\n"
           "folder, or a file that cannot be imported at all.\n";
}

namespace {

void printChange(const exchange::HealthChange& c, bool replacing)
{
    char date[16];
    std::snprintf(date, sizeof date, "%04d-%02d-%02d", c.date.year, c.date.month, c.date.day);
    std::cout << "  " << date << " " << exchange::importedValueName(c.value) << ": ";
    if (replacing)
        std::cout << c.oldValue << " -> ";
    std::cout << c.newValue << " (line " << c.line << ")\n";
}

} // namespace

int importHealthCommand(const std::vector<std::string>& arguments, const char* argv0)
{
    std::vector<std::string> args = arguments;
    UserDataOptions where;
    if (!takeUserDataOptions(args, where))
        return usage(importHealthHelp());
    bool replace = false, yes = false;
    std::filesystem::path file;
    for (const std::string& a : args) {
        if (a == "--replace")
            replace = true;
        else if (a == "--yes")
            yes = true;
        else if (file.empty() && !a.starts_with("--"))
            file = model::pathFromUtf8(a);
        else
            return usage(importHealthHelp());
    }
    if (file.empty())
        return usage(importHealthHelp());
    const auto bytes = model::readWholeFile(file);
    if (!bytes) {
        std::cerr << "velmora-cli: " << bytes.error().message() << "\n";
        return 2;
    }
    model::Store store;
    model::FolderLock lock;
    if (int status = loadUserStore(where, argv0, store, &lock); status != 0)
        return status;
    const std::string text(bytes.value().begin(), bytes.value().end());
    const exchange::HealthImportOutcome outcome = exchange::planHealthImport(text, store.journal);
    if (!outcome.ok()) {
        std::cerr << "velmora-cli: " << file.string() << ": " << outcome.error.message() << "\n";
        return 2;
    }
    const exchange::HealthImportPlan& plan = *outcome.plan;
    for (const std::string& c : plan.columns)
        std::cout << "Column: " << c << "\n";
    std::cout << plan.newValues.size() << " new values:\n";
    for (const auto& c : plan.newValues)
        printChange(c, false);
    std::cout << plan.replacements.size() << " values differ from the journal"
              << (replace ? " and will be replaced:\n"
                          : " and are kept (--replace replaces them):\n");
    for (const auto& c : plan.replacements)
        printChange(c, true);
    for (const auto& p : plan.problems)
        std::cout << "Line " << p.line << " skipped: " << p.message << "\n";
    if (!plan.hasChanges(replace)) {
        std::cout << "Nothing to import.\n";
        return 0;
    }
    if (!yes) {
        std::cout << "Nothing was changed: run again with --yes to import.\n";
        return 1;
    }
    const std::size_t written = exchange::applyHealthImport(store.journal, plan, replace);
    model::Status saved = store.saveCurrentUser();
    reportKeptVersions(store);
    if (!saved)
        return fail(saved.error().message());
    std::cout << "Imported " << written << " values.\n";
    return 0;
}

} // namespace velmora::cli
