// Every row of the file-kinds table on a hand-made file: the whole file comes back byte for byte
// and its salvage is complete; every shorter prefix is refused inside what is there, naming the
// file, and its salvage keeps only whole parts, never fewer for a longer prefix.

#include <gtest/gtest.h>

#include "model/FileKinds.h"
#include "support/Fixtures.h"
#include "support/TransferBytes.h"

using namespace velmora::model;
using namespace velmora::test;

TEST(FileKinds, WholeFilesComeBackAndEveryPrefixIsRefused)
{
    const std::pair<FileKind, std::vector<std::uint8_t>> cases[] = {
        {FileKind::Foods, handMadeFoods()},          {FileKind::Shared, handMadeShared()},
        {FileKind::User, handMadeUserFile()},        {FileKind::Tandry, handTandryShared(376)},
        {FileKind::TandryUser, handTandryUser(376)}, {FileKind::Korvel, handKorvelShared(302)},
        {FileKind::KorvelUser, handKorvelUser(302)},
    };
    ASSERT_EQ(fileKinds().size(), std::size(cases));
    for (const auto& [kind, bytes] : cases) {
        const FileKindInfo& k = fileKind(kind);
        SCOPED_TRACE(k.name);
        EXPECT_EQ(findFileKind(k.name), &k);
        const auto once = k.rewrite(bytes, "f");
        ASSERT_TRUE(once.ok()) << once.error().message();
        EXPECT_EQ(once.value(), bytes);
        const auto whole = k.salvage(bytes, "f");
        EXPECT_TRUE(whole.complete);
        EXPECT_EQ(whole.value, bytes);
        const auto empty = k.empty();
        ASSERT_TRUE(k.rewrite(empty, "f").ok());
        EXPECT_EQ(k.rewrite(empty, "f").value(), empty);

        int partsBefore = 0;
        for (std::size_t n = 0; n < bytes.size(); ++n) {
            SCOPED_TRACE("prefix of " + std::to_string(n) + " bytes");
            const std::vector<std::uint8_t> prefix(bytes.begin(),
                                                   bytes.begin() + std::ptrdiff_t(n));
            const auto refused = k.rewrite(prefix, "f");
            ASSERT_FALSE(refused.ok());
            EXPECT_LE(refused.error().offset, n);
            EXPECT_EQ(refused.error().file, "f");
            const auto part = k.salvage(prefix, "f");
            EXPECT_FALSE(part.complete);
            EXPECT_GE(part.partsRead, partsBefore);
            partsBefore = part.partsRead;
            // What was salvaged is a file of its own that reads whole.
            EXPECT_TRUE(k.rewrite(part.value, "f").ok());
        }
        EXPECT_LE(partsBefore, whole.partsRead);
    }
}
