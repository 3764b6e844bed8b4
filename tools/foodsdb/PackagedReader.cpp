#include "PackagedReader.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <charconv>
#include <cmath>
#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "NutrientOrder.h"
#include "ZipArchive.h"
#include "model/TextCodec.h"

namespace velmora::foodsdb {

using model::FileError;
using model::FileErrorCode;
using model::Result;

namespace {

constexpr const char* NutrientsEntry = "nutrients.xml";

FileError damaged(const std::string& file, std::string detail)
{
    return FileError{FileErrorCode::BadValue, file, 0, std::move(detail)};
}

struct DocFree
{
    void operator()(xmlDoc* d) const { xmlFreeDoc(d); }
};
using DocPtr = std::unique_ptr<xmlDoc, DocFree>;

Result<DocPtr> parseXml(std::string_view xml, const std::string& fileName)
{
    xmlResetLastError();
    xmlDoc* doc = xmlReadMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr,
                                XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING |
                                    XML_PARSE_NOBLANKS);
    if (!doc) {
        std::string detail = "not well-formed XML";
        if (const xmlError* e = xmlGetLastError(); e && e->message) {
            std::string msg = e->message;
            while (!msg.empty() && (msg.back() == '\n' || msg.back() == ' '))
                msg.pop_back();
            detail += " (line " + std::to_string(e->line) + ": " + msg + ")";
        }
        return damaged(fileName, detail);
    }
    return DocPtr(doc);
}

bool isElement(const xmlNode* n, const char* name)
{
    return n->type == XML_ELEMENT_NODE &&
           xmlStrcmp(n->name, reinterpret_cast<const xmlChar*>(name)) == 0;
}

std::optional<std::string> attribute(const xmlNode* n, const char* name)
{
    xmlChar* v = xmlGetProp(n, reinterpret_cast<const xmlChar*>(name));
    if (!v)
        return std::nullopt;
    std::string s(reinterpret_cast<const char*>(v));
    xmlFree(v);
    return s;
}

std::optional<double> parseNumber(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    double v = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (text.empty() || ec != std::errc() || end != text.data() + text.size() || !std::isfinite(v))
        return std::nullopt;
    return v;
}

// A numeric attribute that must be there.
Result<double> numberAttribute(const xmlNode* n, const char* name, const std::string& fileName,
                               std::string_view element)
{
    const auto text = attribute(n, name);
    if (!text)
        return damaged(fileName, "a <" + std::string(element) + "> has no " + name + " attribute");
    const auto v = parseNumber(*text);
    if (!v)
        return damaged(fileName, "a <" + std::string(element) + "> has the " + name + " \"" +
                                     *text + "\", which is not a number");
    return *v;
}

// Life-stage groups as a representative age, gender and status; an intake applies to a group when
// its age range holds the age.
struct LifeStage
{
    double age;
    std::string_view gender; // "all" for infants and children
    std::string_view status;
};
constexpr LifeStage LifeStages[model::LifeStageGroupCount] = {
    {0.25, "all", ""},
    {0.75, "all", ""},
    {2, "all", ""},
    {6, "all", ""},
    {11, "male", ""},
    {16, "male", ""},
    {25, "male", ""},
    {40, "male", ""},
    {60, "male", ""},
    {80, "male", ""},
    {11, "female", ""},
    {16, "female", ""},
    {25, "female", ""},
    {40, "female", ""},
    {60, "female", ""},
    {80, "female", ""},
    {16, "female", "pregnant"},
    {25, "female", "pregnant"},
    {40, "female", "pregnant"},
    {16, "female", "lactating"},
    {25, "female", "lactating"},
    {40, "female", "lactating"},
};

Result<SourceIntake> readIntakes(const xmlNode* nutrient, const std::string& fileName,
                                 const std::string& nutrientName)
{
    SourceIntake intake;
    std::array<bool, model::LifeStageGroupCount> set{};
    for (const xmlNode* c = nutrient->children; c; c = c->next) {
        if (!isElement(c, "rda"))
            continue;
        const auto minAge = numberAttribute(c, "min_age", fileName, "rda");
        if (!minAge)
            return minAge.error();
        std::optional<double> maxAge;
        if (attribute(c, "max_age")) {
            const auto v = numberAttribute(c, "max_age", fileName, "rda");
            if (!v)
                return v.error();
            maxAge = v.value();
        }
        const auto amount = numberAttribute(c, "amount", fileName, "rda");
        if (!amount)
            return amount.error();
        const std::string gender = attribute(c, "gender").value_or("all");
        const std::string status = attribute(c, "status").value_or("");
        bool used = false;
        for (int g = 0; g < model::LifeStageGroupCount; ++g) {
            if (!coversLifeStage(g, minAge.value(), maxAge, gender, status))
                continue;
            used = true;
            // The first intake that covers a group wins, as the file lists them from the
            // general to the particular.
            if (!set[static_cast<std::size_t>(g)]) {
                intake.recommended[static_cast<std::size_t>(g)] =
                    static_cast<float>(amount.value());
                set[static_cast<std::size_t>(g)] = true;
            }
        }
        if (!used)
            return damaged(fileName, "a reference intake of " + nutrientName +
                                         " applies to no life-stage group");
    }
    return intake;
}

} // namespace

bool coversLifeStage(int group, double minAge, std::optional<double> maxAge,
                     std::string_view gender, std::string_view status)
{
    if (group < 0 || group >= model::LifeStageGroupCount)
        return false;
    const LifeStage& s = LifeStages[group];
    if (status != s.status)
        return false;
    if (gender != "all" && gender != s.gender)
        return false;
    return minAge <= s.age && (!maxAge || s.age <= *maxAge);
}

const NutrientDefinitions::Entry* NutrientDefinitions::find(std::string_view name) const
{
    for (const Entry& e : entries)
        if (e.name == name)
            return &e;
    return nullptr;
}

Result<NutrientDefinitions> parseNutrientDefinitions(std::string_view xml,
                                                     const std::string& fileName)
{
    auto doc = parseXml(xml, fileName);
    if (!doc)
        return doc.error();
    const xmlNode* root = xmlDocGetRootElement(doc.value().get());
    if (!root || !isElement(root, "nutrients"))
        return damaged(fileName, "the root element is not <nutrients>");

    NutrientDefinitions defs;
    NutrientId nextSum = FirstOtherSumNumber;
    for (const xmlNode* n = root->children; n; n = n->next) {
        if (!isElement(n, "nutrient"))
            continue;
        NutrientDefinitions::Entry e;
        const auto name = attribute(n, "name");
        if (!name || name->empty())
            return damaged(fileName, "a <nutrient> has no name");
        e.name = *name;
        if (defs.find(e.name))
            return damaged(fileName, "the nutrient " + e.name + " is defined twice");
        e.unit = model::utf8ToCp1252(attribute(n, "unit").value_or(""));

        const std::string usda = attribute(n, "usda").value_or("");
        if (usda.find(',') != std::string::npos) {
            e.number = sumNumberForName(e.name).value_or(0);
            if (e.number == 0)
                e.number = nextSum++;
        } else if (!usda.empty()) {
            const auto v = parseNumber(usda);
            if (!v || *v != std::floor(*v) || *v <= 0 || *v >= 1000)
                return damaged(fileName, "the nutrient " + e.name + " has the USDA number \"" +
                                             usda + "\", which is not one");
            e.number = static_cast<NutrientId>(*v);
        }

        auto intakes = readIntakes(n, fileName, e.name);
        if (!intakes)
            return intakes.error();
        e.intakes = intakes.take();
        e.intakes.number = e.number;
        e.hasIntakes = false;
        for (const xmlNode* c = n->children; c; c = c->next)
            e.hasIntakes = e.hasIntakes || isElement(c, "rda");
        defs.entries.push_back(std::move(e));
    }
    if (defs.entries.empty())
        return damaged(fileName, "it defines no nutrients");
    return defs;
}

Result<NutrientDefinitions> readNutrientDefinitions(const std::filesystem::path& jar)
{
    auto zip = ZipArchive::open(jar);
    if (!zip)
        return zip.error();
    if (!zip.value().contains(NutrientsEntry))
        return damaged(zip.value().fileName(), std::string("the archive has no ") + NutrientsEntry);
    auto xml = zip.value().read(NutrientsEntry);
    if (!xml)
        return xml.error();
    return parseNutrientDefinitions(xml.value(),
                                    zip.value().fileName() + " (" + NutrientsEntry + ")");
}

Result<SourceFood> parseFoodXml(std::string_view xml, const NutrientDefinitions& defs,
                                const std::string& fileName)
{
    auto doc = parseXml(xml, fileName);
    if (!doc)
        return doc.error();
    const xmlNode* root = xmlDocGetRootElement(doc.value().get());
    if (!root || !isElement(root, "food"))
        return damaged(fileName, "the root element is not <food>");

    SourceFood food;
    const auto uid = attribute(root, "uid");
    const auto number = uid ? parseNumber(*uid) : std::nullopt;
    if (!number || *number != std::floor(*number) || *number < 1 || *number > 99999)
        return damaged(fileName, "the food has no number (uid) between 1 and 99999");
    food.number = static_cast<int>(*number);
    const auto name = attribute(root, "name");
    if (!name || name->empty())
        return damaged(fileName, "the food has no name");
    food.name = model::utf8ToCp1252(*name);

    std::unordered_set<NutrientId> seen;
    for (const xmlNode* c = root->children; c; c = c->next) {
        if (isElement(c, "measure")) {
            SourceMeasure m;
            const auto amount = numberAttribute(c, "amount", fileName, "measure");
            if (!amount)
                return amount.error();
            const auto grams = numberAttribute(c, "grams", fileName, "measure");
            if (!grams)
                return grams.error();
            m.amount = amount.value();
            m.grams = grams.value();
            m.description = model::utf8ToCp1252(attribute(c, "name").value_or(""));
            food.measures.push_back(std::move(m));
        } else if (isElement(c, "nutrient")) {
            const std::string nutrientName = attribute(c, "name").value_or("");
            const NutrientDefinitions::Entry* def = defs.find(nutrientName);
            if (!def)
                return damaged(fileName, "the food lists the nutrient \"" + nutrientName +
                                             "\", which nutrients.xml does not define");
            const auto amount = numberAttribute(c, "amount", fileName, "nutrient");
            if (!amount)
                return amount.error();
            if (def->number == 0) // a nutrient without a USDA number has no place in foods.db
                continue;
            if (!seen.insert(def->number).second)
                return damaged(fileName, "the food lists the nutrient " + nutrientName + " twice");
            food.values.emplace_back(def->number, amount.value());
        }
    }
    return food;
}

Result<SourceData> readPackagedData(const std::filesystem::path& foodsJar,
                                    const std::filesystem::path& nutrientsJar,
                                    const Progress& progress)
{
    auto defs = readNutrientDefinitions(nutrientsJar);
    if (!defs)
        return defs.error();
    auto zip = ZipArchive::open(foodsJar);
    if (!zip)
        return zip.error();

    // One file per food, named by its five-digit number; the archive's index files are skipped.
    std::vector<std::string> entries;
    for (std::string& e : zip.value().entryNames()) {
        const std::size_t slash = e.rfind('/');
        const std::string_view base =
            std::string_view(e).substr(slash == std::string::npos ? 0 : slash + 1);
        if (base.size() < 5 || !base.ends_with(".xml"))
            continue;
        const std::string_view stem = base.substr(0, base.size() - 4);
        if (stem.find_first_not_of("0123456789") == std::string_view::npos)
            entries.push_back(std::move(e));
    }
    if (entries.empty())
        return damaged(zip.value().fileName(), "the archive holds no food files (NNNNN.xml)");

    SourceData data;
    std::unordered_set<NutrientId> used;
    data.foods.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        auto xml = zip.value().read(entries[i]);
        if (!xml)
            return xml.error();
        auto food = parseFoodXml(xml.value(), defs.value(),
                                 zip.value().fileName() + " (" + entries[i] + ")");
        if (!food)
            return food.error();
        for (const auto& [n, v] : food.value().values)
            used.insert(n);
        data.foods.push_back(food.take());
        if (progress && ((i + 1) % 250 == 0 || i + 1 == entries.size()))
            progress(i + 1, entries.size());
    }

    int order = 0;
    for (const NutrientDefinitions::Entry& e : defs.value().entries) {
        ++order;
        if (e.number != 0 && used.contains(e.number))
            data.nutrients.push_back(
                SourceNutrient{e.number, e.unit, model::utf8ToCp1252(e.name), order});
        // Intakes of a nutrient without a USDA number cannot be looked up by number and are left
        // out.
        if (e.number != 0 && e.hasIntakes)
            data.intakes.push_back(e.intakes);
    }
    return data;
}

} // namespace velmora::foodsdb
