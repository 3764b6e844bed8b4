#include "model/FoodDatabase.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <iterator>

#include "model/Archive.h"
#include "model/SafeFile.h"

namespace velmora::model {

namespace {

// Smallest possible size of each record, for checking counts against the bytes left.
constexpr std::size_t MinFoodSize = 4 + 4 + 1 + StoredNutrientCount * 4 + 4;
constexpr std::size_t MinMeasureSize = 4 + 1;
constexpr std::size_t MinCatalogueEntrySize = 4 + 1 + 1;
constexpr std::size_t MinGroupSize = 4 + 1;
constexpr std::size_t IntakeSize = 4 + LifeStageGroupCount * 8;

void readFood(ArchiveReader& in, FoodItem& food)
{
    food.number = in.i32();
    food.group = in.i32();
    food.name = in.text();
    in.f32s(food.values);
    const std::size_t measures = in.count(MinMeasureSize, true);
    food.measures.reserve(measures);
    for (std::size_t i = 0; i < measures; ++i) {
        FoodMeasure m;
        m.grams = in.f32();
        m.description = in.text();
        food.measures.push_back(std::move(m));
    }
}

} // namespace

// Reads the four collections into db, each taken over only once complete.
void FoodDatabase::readFrom(ArchiveReader& in, FoodDatabase& db)
{
    {
        const std::size_t count = in.count(MinFoodSize, true);
        std::vector<FoodItem> foods;
        foods.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            readFood(in, foods.emplace_back());
        // Taken over whole rather than food by food, so that the foods are never held twice.
        const std::size_t first = db.m_foods.size();
        if (first == 0)
            db.m_foods = std::move(foods);
        else
            db.m_foods.insert(db.m_foods.end(), std::make_move_iterator(foods.begin()),
                              std::make_move_iterator(foods.end()));
        db.m_byNumber.reserve(db.m_foods.size());
        for (std::size_t i = first; i < db.m_foods.size(); ++i)
            db.m_byNumber[db.m_foods[i].number] = i; // a later duplicate replaces the earlier one
    }
    {
        const std::size_t entries = in.count(MinCatalogueEntrySize, true);
        std::vector<NutrientDef> catalogue;
        catalogue.reserve(entries);
        for (std::size_t i = 0; i < entries; ++i) {
            NutrientDef d;
            d.number = in.i32();
            d.shortText = in.text();
            d.name = in.text();
            catalogue.push_back(std::move(d));
        }
        db.m_catalogue.setFileEntries(std::move(catalogue));
    }
    {
        const std::size_t count = in.count(MinGroupSize, true);
        std::vector<FoodGroup> groups;
        groups.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            FoodGroup g;
            g.number = in.i32();
            g.name = in.text();
            groups.push_back(std::move(g));
        }
        db.m_groups = std::move(groups);
    }
    {
        const std::size_t count = in.count(IntakeSize, true);
        std::vector<IntakeRecord> intakes;
        intakes.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            IntakeRecord r;
            r.nutrient = in.i32();
            for (int g = 0; g < LifeStageGroupCount; ++g) {
                r.recommended[static_cast<std::size_t>(g)] = in.f32();
                r.second[static_cast<std::size_t>(g)] = in.u32();
            }
            intakes.push_back(r);
        }
        db.m_intakes = std::move(intakes);
    }
}

Result<FoodDatabase> FoodDatabase::parse(std::span<const std::uint8_t> bytes,
                                         const std::string& fileName)
{
    return parseArchive<FoodDatabase>(bytes, fileName, [](ArchiveReader& in) {
        FoodDatabase db;
        readFrom(in, db);
        return db;
    });
}

Salvaged<FoodDatabase> FoodDatabase::salvage(std::span<const std::uint8_t> bytes,
                                             const std::string& fileName)
{
    Salvaged<FoodDatabase> out;
    ArchiveReader in(bytes);
    try {
        readFrom(in, out.value);
    } catch (const ArchiveError& e) {
        out.error = FileError{e.code(), fileName, e.offset(), e.what()};
        out.complete = false;
    }
    return out;
}

Result<FoodDatabase> FoodDatabase::load(const std::filesystem::path& path)
{
    auto bytes = readWholeFile(path);
    if (!bytes)
        return bytes.error();
    return parse(bytes.value(), path.string());
}

std::vector<std::uint8_t> FoodDatabase::serialize() const
{
    ArchiveWriter out;
    out.reserve(m_foods.size() * (MinFoodSize + 64) + 4096);
    out.count(m_foods.size());
    for (const FoodItem& f : m_foods) {
        out.i32(f.number);
        out.i32(f.group);
        out.text(f.name);
        for (float v : f.values)
            out.f32(v);
        out.count(f.measures.size());
        for (const FoodMeasure& m : f.measures) {
            out.f32(m.grams);
            out.text(m.description);
        }
    }
    const auto& entries = m_catalogue.entries();
    out.count(m_catalogue.fileCount());
    for (std::size_t i = 0; i < m_catalogue.fileCount(); ++i) {
        out.i32(entries[i].number);
        out.text(entries[i].shortText);
        out.text(entries[i].name);
    }
    out.count(m_groups.size());
    for (const FoodGroup& g : m_groups) {
        out.i32(g.number);
        out.text(g.name);
    }
    out.count(m_intakes.size());
    for (const IntakeRecord& r : m_intakes) {
        out.i32(r.nutrient);
        for (std::size_t g = 0; g < LifeStageGroupCount; ++g) {
            out.f32(r.recommended[g]);
            out.u32(r.second[g]);
        }
    }
    return out.take();
}

void FoodDatabase::addFood(FoodItem food)
{
    const std::int32_t number = food.number;
    m_foods.push_back(std::move(food));
    m_byNumber[number] = m_foods.size() - 1; // a later duplicate replaces the earlier one
}

const FoodItem* FoodDatabase::findDatabaseFood(std::int32_t number) const
{
    if (number >= FirstCustomFoodNumber)
        return nullptr;
    const auto it = m_byNumber.find(number);
    return it == m_byNumber.end() ? nullptr : &m_foods[it->second];
}

const IntakeRecord* FoodDatabase::findIntake(NutrientId n) const
{
    for (const IntakeRecord& r : m_intakes)
        if (r.nutrient == n)
            return &r;
    return nullptr;
}

std::string FoodDatabase::sourceRelease() const
{
    for (const FoodGroup& g : m_groups)
        if (isSourceGroup(g))
            return g.name;
    return {};
}

std::string formatText(const char* format, ...)
{
    char small[256];
    va_list args;
    va_start(args, format);
    va_list copy;
    va_copy(copy, args);
    const int n = std::vsnprintf(small, sizeof small, format, args);
    va_end(args);
    std::string result;
    if (n < 0) {
        va_end(copy);
        return result;
    }
    if (static_cast<std::size_t>(n) < sizeof small) {
        result.assign(small, static_cast<std::size_t>(n));
    } else {
        result.resize(static_cast<std::size_t>(n));
        std::vsnprintf(result.data(), result.size() + 1, format, copy);
    }
    va_end(copy);
    return result;
}

std::string servingText(const FoodItem& food, float amount)
{
    const double grams = static_cast<double>(amount) * 100.0;
    if (!food.isCustom()) {
        for (const FoodMeasure& m : food.measures) {
            const double mg = m.grams;
            const double q = grams / mg;
            const double frac = std::fmod(q, 1.0);
            const bool whole = std::fabs(frac - 1.0) < 0.001 || frac <= 0.001;
            // The remainder keeps the sign of grams - mg: amounts below one measure pass here and
            // are turned away by the quarter-measure minimum below.
            const bool quarter = std::fmod(grams - mg, mg * 0.25) < 0.0001;
            if (!whole && !quarter)
                continue;
            const double r = q + 0.0005;
            if (r < 0.25)
                continue;
            if (r > 0.9 && r < 1.1)
                return m.description;
            if (whole) {
                const double count = r < 2147483647.0 ? r : 2147483647.0;
                return formatText("%d x %s", static_cast<int>(count), m.description.c_str());
            }
        }
    }
    return formatText("%.2lfg", grams);
}

} // namespace velmora::model
