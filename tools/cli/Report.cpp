// velmora-cli report [--data-dir DIR] [--foods FILE] [--user NAME] --from DATE --to DATE [--csv]
#include "Command.h"

#include <iostream>

#include "analysis/logic/NutritionAnalysis.h"
#include "model/Store.h"

namespace velmora::cli {

std::string reportHelp()
{
    return "Usage: velmora-cli report [--data-dir DIR] [--foods FILE] [--user NAME]\n"
           "                          --from YYYY-MM-DD --to YYYY-MM-DD [--csv]\n"
           "\n"
           "Prints the nutritional analysis of a period, as the graphs page shows it: a first\n"
           "line \"Nutrient<TAB>Avg<TAB>Daily Goal<TAB>Net\", then one line per row of the table,\n"
           "cells exactly as the page shows them, separated by one tab. --csv prints the same\n"
           "header and cells as CSV. The dates are local calendar dates, both included; NAME\n"
           "defaults to the current user of velmora.db. Nothing is written into the data folder.\n"
           "\n"
           "Exit status: 0 printed (an empty period prints the header alone); 1 the user has no\n"
           "goals set (the page's message on standard error, nothing on standard output); 2 an\n"
           "unknown user, an unreadable data folder or a malformed date.\n";
}

int reportCommand(const std::vector<std::string>& arguments, const char* argv0)
{
    std::vector<std::string> args = arguments;
    UserDataOptions where;
    if (!takeUserDataOptions(args, where))
        return usage(reportHelp());
    if (int status = checkDates(where); status != 0)
        return status;
    const bool csv = args.size() == 1 && args[0] == "--csv";
    if ((!args.empty() && !csv) || !where.from || !where.to)
        return usage(reportHelp());
    model::Store store;
    if (int status = loadUserStore(where, argv0, store); status != 0)
        return status;
    const analysis::AnalysisTable table = analysis::buildAnalysis(store, *where.from, *where.to);
    if (table.state == analysis::AnalysisTable::State::GoalsNotSet) {
        std::cerr << analysis::GoalsNotSetText << "\n";
        return 1;
    }
    if (csv)
        analysis::writeAnalysisCsv(std::cout, table);
    else
        analysis::writeAnalysisText(std::cout, table);
    return std::cout.good() ? 0 : 1;
}

} // namespace velmora::cli
