#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "model/Archive.h"
#include "model/Journal.h"

namespace velmora::model {

// The definition records (exercise fields, exercises, routines, variables) and the id lists inside
// them, stored alike by the user database and both handhelds' shared files. Readers throw
// ArchiveError with the offset where the bytes ran out or a count cannot fit.

// The smallest stored size of each record, for checking counts against the bytes left.
template <class T> inline constexpr std::size_t MinDefinitionSize = 0;
template <> inline constexpr std::size_t MinDefinitionSize<ExerciseField> = 4 + 1 + 4;
template <> inline constexpr std::size_t MinDefinitionSize<Exercise> = 4 + 1 + 4;
template <> inline constexpr std::size_t MinDefinitionSize<Routine> = 4 + 4 + 1 + 4;
template <>
inline constexpr std::size_t MinDefinitionSize<UserVariable> = 4 + 1 + 4 + 1 + 4 + 3 * 4;

// A counted list of 32-bit ids.
void readIdList(ArchiveReader& in, std::vector<std::int32_t>& ids);
void writeIdList(ArchiveWriter& out, const std::vector<std::int32_t>& ids);

void readDefinition(ArchiveReader& in, ExerciseField& f);
void readDefinition(ArchiveReader& in, Exercise& e);
void readDefinition(ArchiveReader& in, Routine& r);
void readDefinition(ArchiveReader& in, UserVariable& v);
void writeDefinition(ArchiveWriter& out, const ExerciseField& f);
void writeDefinition(ArchiveWriter& out, const Exercise& e);
void writeDefinition(ArchiveWriter& out, const Routine& r);
void writeDefinition(ArchiveWriter& out, const UserVariable& v);

// A counted list of definitions.
template <class T> void writeDefinitionList(ArchiveWriter& out, const std::vector<T>& list)
{
    out.count(list.size());
    for (const T& record : list)
        writeDefinition(out, record);
}

// Reads a counted list of definitions into list, taken over only once the whole list is read.
template <class T> void readWholeDefinitionList(ArchiveReader& in, std::vector<T>& list)
{
    std::vector<T> read(in.count(MinDefinitionSize<T>));
    for (T& record : read)
        readDefinition(in, record);
    list = std::move(read);
}

} // namespace velmora::model
