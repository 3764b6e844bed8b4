#include "support/DataFolderFixture.h"

#include "support/Fixtures.h"
#include "support/TempDir.h"

namespace velmora::test {

void writeHandMadeFolder(const TempDir& dir, HandMadeFiles files)
{
    writeBytes(dir / "foods.db", handMadeFoods());
    if (files != HandMadeFiles::Foods)
        writeBytes(dir / "velmora.db", handMadeShared());
    if (files == HandMadeFiles::All)
        writeBytes(dir / "Bert.db", handMadeUserFile());
}

model::Store storeIn(const TempDir& dir)
{
    model::Store s;
    s.setPaths(dir / "foods.db", dir.path());
    return s;
}

} // namespace velmora::test
