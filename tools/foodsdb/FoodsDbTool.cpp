#include "FoodsDbTool.h"

#include <chrono>
#include <filesystem>
#include <optional>

#include "DatabaseAssembler.h"
#include "PackagedReader.h"
#include "SrAsciiReader.h"
#include "UsdaGroups.h"
#include "model/SafeFile.h"

namespace velmora::foodsdb {

namespace {

// The release the packaged archive holds.
constexpr const char* PackagedRelease = "USDA SR24";

constexpr const char* Usage =
    "Usage:\n"
    "  velmora-foodsdb --usda-jar FILE --nutrients-jar FILE -o OUT\n"
    "      Builds OUT (foods.db) from the packaged USDA SR24 data: FILE usda_sr24.jar (one XML\n"
    "      file per food) and the archive that holds nutrients.xml (nutrient definitions and\n"
    "      reference intakes).\n"
    "  velmora-foodsdb --sr-ascii DIR --release NAME [--nutrients-jar FILE] -o OUT\n"
    "      Builds OUT from a USDA SR release in its ASCII form: FOOD_DES.txt, FD_GROUP.txt,\n"
    "      NUTR_DEF.txt, NUT_DATA.txt and WEIGHT.txt in DIR. NAME names the release, e.g.\n"
    "      \"USDA SR28\". The reference intakes come from --nutrients-jar when it is given.\n"
    "  velmora-foodsdb --help\n";

struct Options
{
    std::optional<std::string> usdaJar, nutrientsJar, srAscii, release, output;
    bool help = false;
};

// Fills options; returns an error text for bad usage.
std::optional<std::string> parseOptions(const std::vector<std::string>& args, Options& o)
{
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--help" || a == "-h") {
            o.help = true;
            continue;
        }
        std::optional<std::string>* target = nullptr;
        if (a == "--usda-jar")
            target = &o.usdaJar;
        else if (a == "--nutrients-jar")
            target = &o.nutrientsJar;
        else if (a == "--sr-ascii")
            target = &o.srAscii;
        else if (a == "--release")
            target = &o.release;
        else if (a == "-o" || a == "--output")
            target = &o.output;
        else
            return "unknown option " + a;
        if (i + 1 >= args.size() || args[i + 1].empty())
            return a + " needs a value";
        if (target->has_value())
            return a + " is given twice";
        *target = args[++i];
    }
    if (o.help)
        return std::nullopt;
    if (!o.output)
        return std::string("-o OUT is missing");
    if (o.usdaJar && o.srAscii)
        return std::string("--usda-jar and --sr-ascii exclude each other");
    if (o.usdaJar) {
        if (!o.nutrientsJar)
            return std::string("--usda-jar needs --nutrients-jar");
        if (o.release)
            return std::string("--release belongs to --sr-ascii");
    } else if (o.srAscii) {
        if (!o.release)
            return std::string("--sr-ascii needs --release NAME");
    } else {
        return std::string("give --usda-jar or --sr-ascii");
    }
    return std::nullopt;
}

void reportError(std::ostream& err, const model::FileError& e)
{
    err << "velmora-foodsdb: error: ";
    if (!e.file.empty())
        err << e.file << ": ";
    err << e.detail << "\nNo foods.db was written.\n";
}

} // namespace

int runFoodsDbTool(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    Options o;
    if (const auto problem = parseOptions(args, o)) {
        err << "velmora-foodsdb: " << *problem << "\n" << Usage;
        return 2;
    }
    if (o.help) {
        out << Usage;
        return 0;
    }

    const auto start = std::chrono::steady_clock::now();
    const Progress progress = [&err](std::size_t done, std::size_t total) {
        err << "\rReading foods: " << done << " of " << total << std::flush;
        if (done == total)
            err << "\n";
    };

    model::Result<SourceData> data = SourceData{};
    std::string release;
    if (o.usdaJar) {
        data = readPackagedData(*o.usdaJar, *o.nutrientsJar, progress);
        release = PackagedRelease;
    } else {
        err << "Reading " << *o.srAscii << "\n";
        data = readSrAscii(*o.srAscii);
        release = *o.release;
        if (data && o.nutrientsJar) {
            auto defs = readNutrientDefinitions(*o.nutrientsJar);
            if (!defs) {
                reportError(err, defs.error());
                return 1;
            }
            for (const NutrientDefinitions::Entry& e : defs.value().entries)
                if (e.number != 0 && e.hasIntakes)
                    data.value().intakes.push_back(e.intakes);
        }
    }
    if (!data) {
        err << "\n";
        reportError(err, data.error());
        return 1;
    }

    auto assembled = assembleDatabase(data.take(), release);
    if (!assembled) {
        reportError(err, assembled.error());
        return 1;
    }
    const model::FoodDatabase& db = assembled.value().database;
    for (const SourceNutrient& n : assembled.value().droppedNutrients)
        err << "Left out (more than 78 nutrients): " << n.number << " " << n.name << "\n";
    for (const auto& [from, to] : assembled.value().renumbered)
        err << "Food " << from << " is numbered " << to << "\n";

    if (const PlacementCounts& p = assembled.value().placement;
        p.byException + p.byLeadingParts + p.byLeadingWord + p.left > 0)
        out << "Foods without a group placed by name: " << p.byLeadingParts
            << " by the leading parts of the name, " << p.byLeadingWord << " by its first word, "
            << p.byException << " by the table of exceptions; " << p.left << " left in \""
            << OtherGroupName << "\"\n";

    err << "Writing " << *o.output << "\n";
    const std::vector<std::uint8_t> bytes = db.serialize();
    if (model::Status s = model::writeFileAtomically(*o.output, bytes); !s) {
        model::FileError e = s.error();
        if (e.file.empty())
            e.file = *o.output;
        reportError(err, e);
        return 1;
    }

    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(
                        std::chrono::steady_clock::now() - start)
                        .count();
    out << "Wrote " << *o.output << " (" << release << "): " << db.foods().size() << " foods, "
        << db.catalogue().fileCount() << " nutrients, " << db.groups().size() - 1
        << " food groups, " << db.intakes().size() << " intake records, " << bytes.size()
        << " bytes in " << ms << " ms\n";
    return 0;
}

} // namespace velmora::foodsdb
