#include "ExportFixture.h"

#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "support/Builders.h"

namespace velmora::test {

using namespace velmora::model;

Store exportStore(int days, bool metric)
{
    Store store;
    store.foods = generatedFoods(50);
    store.foods.catalogue().appendComputed();
    store.shared.userNames = {"Ann"};
    store.shared.currentUser = 0;

    FoodItem bar =
        FoodBuilder(store.foods.catalogue().entries(), 70000, "M\xFCsli bar, \"crunchy\"")
            .value(nutrient::Energy, 180.0f)
            .value(nutrient::Protein, 6.0f)
            .value(nutrient::Fat, 7.5f)
            .value(nutrient::Carbohydrate, 24.0f)
            .value(nutrient::Fibre, 3.0f)
            .serving(40.0f);
    store.shared.customFoods.push_back(bar);
    store.shared.fields = {{1, "Reps", 0}, {2, "Weight", 0}, {3, "Comment", 1}};
    store.shared.exercises = {{1, "Bench press", {1, 2}}};
    store.shared.routines = {{1, 300, "Strength", {1}}};
    UserVariable vitamin;
    vitamin.id = 1;
    vitamin.name = "Vitamin D";
    store.shared.variables = {vitamin};

    store.journal.user.metric = metric ? 1 : 0;
    store.journal.days = generatedJournal(store.foods, JournalShape{days, 3, 4, 1, 1});
    auto& d = store.journal.days;
    d[0].meals[0].entries.push_back(FoodEntry{70000, 1.5f});
    d[1].meals[1].entries.push_back(FoodEntry{99999, 2.0f}); // no such custom food
    d[1].meals[1].entries.push_back(FoodEntry{555, 0.5f});   // no such database food
    d[1].health.bmi = 21.581632f;
    d[1].health.bodyFat = 18.3f;
    d[1].health.mood = 4;
    d[1].health.measurements[static_cast<std::size_t>(Measurement::LeftBicep)] = 13.25f;
    d[2].notes[1] = "Met Bob, said \"hi\"\r\nthen left";
    if (days > 4) {
        d[3].meals.clear(); // only a workout and health values
        d[4].meals.clear();
        d[4].workouts.clear();
        d[4].health = HealthEntry{}; // only notes
    }
    return store;
}

std::string readText(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

std::size_t CsvRows::column(const std::string& name) const
{
    for (std::size_t i = 0; i < header.size(); ++i)
        if (header[i] == name)
            return i;
    ADD_FAILURE() << "no column " << name;
    return 0;
}

CsvRows readRows(const std::filesystem::path& path)
{
    const exchange::CsvTable table = exchange::readCsv(readText(path));
    EXPECT_EQ(table.unterminatedQuoteLine, 0) << path;
    CsvRows out;
    if (table.records.empty()) {
        ADD_FAILURE() << "no header in " << path;
        return out;
    }
    out.header = table.records.front().fields;
    for (std::size_t i = 1; i < table.records.size(); ++i) {
        EXPECT_EQ(table.records[i].fields.size(), out.header.size())
            << path << " line " << table.records[i].line;
        out.rows.push_back(table.records[i].fields);
    }
    return out;
}

} // namespace velmora::test
