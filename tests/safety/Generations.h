#pragma once

// The content that the save loop writes in its k-th round, derived from a base content: the
// second header text of "velmora.db" and the first note of the first day carry the round.

#include <cstdlib>
#include <string>

#include "model/UserDatabase.h"

namespace velmora::test {

inline std::string generationText(long k)
{
    return "generation " + std::to_string(k);
}

// The round a text names, or -1.
inline long generationOf(const std::string& text)
{
    const std::string prefix = "generation ";
    if (text.rfind(prefix, 0) != 0)
        return -1;
    return std::strtol(text.c_str() + prefix.size(), nullptr, 10);
}

inline void applyGeneration(model::SharedData& shared, long k)
{
    shared.header2 = generationText(k);
}

inline void applyGeneration(model::UserJournal& journal, long k)
{
    if (!journal.days.empty())
        journal.days.front().notes[0] = generationText(k);
}

} // namespace velmora::test
