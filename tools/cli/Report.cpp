// velmora-cli report [--data-dir DIR] [--foods FILE] [--user NAME] --from DATE --to DATE [--csv]
//                    [--pdf FILE]
#include "Command.h"

#include <iostream>

#include "analysis/logic/NutritionAnalysis.h"
#include "model/Store.h"

#if VELMORA_CLI_PDF
#include <QGuiApplication>
#include <QString>

#include "analysis/report/AnalysisReport.h"
#endif

namespace velmora::cli {

namespace {

#if VELMORA_CLI_PDF
// Qt's own notices (fonts, run-time folders) would mix into the messages scripts read.
void quietQtMessages(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::cerr << "velmora-cli: " << message.toStdString() << "\n";
}
#endif

int writePdf(const std::string& path, const model::Store& store, model::CalendarDate from,
             model::CalendarDate to)
{
#if VELMORA_CLI_PDF
    // The pages are painted without a display.
    qInstallMessageHandler(quietQtMessages);
    int argc = 3;
    char name[] = "velmora-cli";
    char platformOption[] = "-platform";
    char platform[] = "offscreen";
    char* argv[] = {name, platformOption, platform, nullptr};
    QGuiApplication application(argc, argv);
    QString error;
    if (!analysis::writeAnalysisPdf(QString::fromStdString(path),
                                    analysis::analysisReport(store, from, to), &error)) {
        std::cerr << "velmora-cli: cannot write " << path << ": " << error.toStdString() << "\n";
        return 2;
    }
    return 0;
#else
    (void)store;
    (void)from;
    (void)to;
    std::cerr << "velmora-cli: cannot write " << path
              << ": this velmora-cli was built without the graphical part that paints PDF pages\n";
    return 2;
#endif
}

} // namespace

std::string reportHelp()
{
    return "Usage: velmora-cli report [--data-dir DIR] [--foods FILE] [--user NAME]\n"
           "                          --from YYYY-MM-DD --to YYYY-MM-DD [--csv] [--pdf FILE]\n"
           "\n"
           "Prints the nutritional analysis of a period, as the graphs page shows it: a first\n"
           "line \"Nutrient<TAB>Avg<TAB>Daily Goal<TAB>Net\", then one line per row of the table,\n"
           "cells exactly as the page shows them, separated by one tab. --csv prints the same\n"
           "header and cells as CSV. --pdf writes the printed report (A4 pages with the title,\n"
           "the table, the footnote and page numbers) to FILE instead, replacing FILE only once\n"
           "the whole report is written. The dates are local calendar dates, both included; NAME\n"
           "defaults to the current user of velmora.db. Nothing is written into the data folder.\n"
           "\n"
           "Exit status: 0 printed (an empty period prints the header alone); 1 the user has no\n"
           "goals set (the page's message on standard error, nothing on standard output, no\n"
           "PDF); 2 an unknown user, an unreadable data folder, a malformed date, or a PDF that\n"
           "could not be written.\n";
}

int reportCommand(const std::vector<std::string>& arguments, const char* argv0)
{
    std::vector<std::string> args = arguments;
    UserDataOptions where;
    if (!takeUserDataOptions(args, where))
        return usage(reportHelp());
    if (int status = checkDates(where); status != 0)
        return status;
    bool csv = false;
    std::optional<std::string> pdf;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--csv" && !csv)
            csv = true;
        else if (args[i] == "--pdf" && !pdf && i + 1 < args.size())
            pdf = args[++i];
        else
            return usage(reportHelp());
    }
    if (!where.from || !where.to || (csv && pdf))
        return usage(reportHelp());
    model::Store store;
    if (int status = loadUserStore(where, argv0, store); status != 0)
        return status;
    const analysis::AnalysisTable table = analysis::buildAnalysis(store, *where.from, *where.to);
    if (table.state == analysis::AnalysisTable::State::GoalsNotSet) {
        std::cerr << analysis::GoalsNotSetText << "\n";
        return 1;
    }
    if (pdf)
        return writePdf(*pdf, store, *where.from, *where.to);
    if (csv)
        analysis::writeAnalysisCsv(std::cout, table);
    else
        analysis::writeAnalysisText(std::cout, table);
    return std::cout.good() ? 0 : 1;
}

} // namespace velmora::cli
