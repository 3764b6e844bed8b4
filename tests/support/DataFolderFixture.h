#pragma once

#include "model/Store.h"
#include "support/TempDir.h"

namespace velmora::test {

// Which of the hand-made files (Fixtures.h) a test's data folder starts with.
enum class HandMadeFiles
{
    Foods,          // "foods.db"
    FoodsAndShared, // and "velmora.db": users Anna and Bert, Bert current
    All             // and "Bert.db"
};

// Writes the hand-made files into the folder.
void writeHandMadeFolder(const TempDir& dir, HandMadeFiles files = HandMadeFiles::All);
// A store whose files are the folder's (nothing loaded yet).
model::Store storeIn(const TempDir& dir);

} // namespace velmora::test
