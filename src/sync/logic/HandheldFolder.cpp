#include "sync/logic/HandheldFolder.h"

#include <vector>

#include "model/Archive.h"
#include "model/SafeFile.h"
#include "model/TextCodec.h"
#include "model/UserNames.h"

namespace velmora::sync {

std::filesystem::path handheldFolder(const std::filesystem::path& dataDir)
{
    return dataDir / HandheldFolderName;
}

model::Result<std::filesystem::path> handheldUserFile(const std::filesystem::path& folder,
                                                      const std::string& name,
                                                      const std::string& extension)
{
    if (!name.empty() && model::checkUserName(name) != model::NameProblem::None) {
        return model::FileError{model::FileErrorCode::UnsafeName, name + extension, 0,
                                model::nameProblemText(model::checkUserName(name))};
    }
    // Names are Windows-1252 bytes; the file name is the same text in the platform's encoding.
    const std::string utf8 = model::cp1252ToUtf8(name) + extension;
    return folder / std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

model::Result<std::uint32_t> readVersionWord(const std::filesystem::path& file,
                                             std::uint32_t whenMissing)
{
    auto bytes = model::readWholeFile(file);
    if (!bytes) {
        if (bytes.error().code == model::FileErrorCode::NotFound)
            return whenMissing;
        return bytes.error();
    }
    return model::parseArchive<std::uint32_t>(bytes.value(), file.string(),
                                              [](model::ArchiveReader& in) { return in.u32(); });
}

} // namespace velmora::sync
