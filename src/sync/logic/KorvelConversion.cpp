#include "sync/logic/KorvelConversion.h"

#include <algorithm>

#include "sync/logic/JournalTransfer.h"

namespace velmora::sync {

namespace {

constexpr std::size_t FirstDefinitionCounter = model::IdCounters::ExerciseField;

} // namespace

bool carriedToKorvel(const model::JournalDay& day)
{
    return !day.health.isEmpty() || !day.workouts.empty() || !day.notes[FitnessNote].empty();
}

void importKorvel(const model::KorvelShared& handheld, const model::KorvelUser& user,
                  model::SharedData& shared, model::UserJournal& journal)
{
    for (std::size_t i = 0; i < handheld.counters.size(); ++i)
        shared.counters.values[FirstDefinitionCounter + i] =
            static_cast<std::int32_t>(handheld.counters[i]);
    importDefinitions(handheld.definitions, shared);
    raiseCountersAboveIds(shared);

    std::vector<model::JournalDay> days = journal.days;
    for (model::JournalDay& d : days) {
        d.health = model::HealthEntry{};
        d.workouts.clear();
        d.notes[FitnessNote].clear();
    }
    std::vector<model::TimeT> dates;
    for (const model::KorvelDay& d : user.days)
        dates.push_back(d.date);
    const std::vector<std::ptrdiff_t> match = matchDays(days, dates);
    const std::size_t existing = days.size();
    for (std::size_t k = 0; k < user.days.size(); ++k) {
        const model::KorvelDay& from = user.days[k];
        if (match[k] < 0) {
            model::JournalDay fresh;
            fresh.date = oneInTheMorning(from.date);
            days.push_back(std::move(fresh));
        }
        model::JournalDay& day =
            match[k] >= 0 ? days[static_cast<std::size_t>(match[k])] : days.back();
        day.health = from.values;
        day.workouts = from.workouts;
        day.notes[FitnessNote] = from.note;
    }
    // Only the days that held something before may have been emptied here.
    std::vector<model::JournalDay> kept;
    kept.reserve(days.size());
    for (std::size_t i = 0; i < days.size(); ++i)
        if (i >= existing || !days[i].isEmpty() || journal.days[i].isEmpty())
            kept.push_back(std::move(days[i]));
    journal.days = std::move(kept);
}

void exportKorvel(const model::SharedData& shared, const model::UserJournal& journal,
                  model::KorvelShared& handheld, model::KorvelUser& user)
{
    for (std::size_t i = 0; i < handheld.counters.size(); ++i)
        handheld.counters[i] =
            static_cast<std::uint32_t>(shared.counters.values[FirstDefinitionCounter + i]);
    handheld.definitions = exportDefinitions(shared);
    user.days.clear();
    for (const model::JournalDay& d : journal.days)
        if (carriedToKorvel(d))
            user.days.push_back(
                model::KorvelDay{d.date, d.health, d.workouts, d.notes[FitnessNote]});
}

} // namespace velmora::sync
