#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>

#include "model/Result.h"
#include "model/SafeFile.h"
#include "sync/logic/HandheldFolder.h"

namespace velmora::sync {

// The in-memory image of one handheld's files in the exchange folder: the shared file and the
// file of the user last read. Shared is TandryShared or KorvelShared, User is TandryUser or
// KorvelUser (see TandryStore.h and KorvelStore.h).
//
// Reads parse a whole file before anything is taken over, so a damaged file changes nothing but
// what the operation empties first; every failure carries the file and, for damaged files, the
// byte offset. Writes replace a file atomically and never create the folder: a missing folder
// makes them fail.
template <class Shared, class User> class TransferStore
{
public:
    explicit TransferStore(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    Shared shared;
    User user;

    const std::filesystem::path& folder() const { return m_folder; }
    std::filesystem::path sharedPath() const { return m_folder / Shared::FileName; }

    // The file of the user at index (index 0 when the name list is empty, giving the file of the
    // empty name). BadValue when the index is outside a non-empty list; UnsafeName when the name
    // could not name a file inside the folder.
    model::Result<std::filesystem::path> userPath(std::size_t index) const
    {
        if (shared.userNames.empty())
            return handheldUserFile(m_folder, std::string(), User::Extension);
        if (index >= shared.userNames.size()) {
            return model::FileError{model::FileErrorCode::BadValue, sharedPath().string(), 0,
                                    "there is no handheld user " + std::to_string(index)};
        }
        return handheldUserFile(m_folder, shared.userNames[index], User::Extension);
    }

    // The format version of the shared file; the current version when the file does not exist.
    model::Result<std::uint32_t> readVersion() const
    {
        return readVersionWord(sharedPath(), Shared::Version);
    }

    // Reads the shared file whole. A missing file is no error: the store keeps its (empty)
    // shared part. A damaged file leaves the shared part as it was.
    model::Status readShared()
    {
        auto bytes = model::readWholeFile(sharedPath());
        if (!bytes) {
            if (bytes.error().code == model::FileErrorCode::NotFound)
                return model::Status::success();
            return bytes.error();
        }
        auto parsed = Shared::parse(bytes.value(), sharedPath().string());
        if (!parsed)
            return parsed.error();
        shared = parsed.take();
        return model::Status::success();
    }

    // Empties the day list, then reads the file of the user at index (index 0 when there are no
    // names; a store without names first gets its defaults, where the handheld has any). On
    // success the profile and days are those of the file and the current user is index. A file
    // that does not exist gives NotFound, a damaged one its error with the offset; the profile
    // then stays as it was and the day list empty.
    model::Status readUser(std::size_t index)
    {
        user.days.clear();
        shared.prepareForUserRead();
        if (shared.userNames.empty())
            index = 0;
        auto path = userPath(index);
        if (!path)
            return path.error();
        auto bytes = model::readWholeFile(path.value());
        if (!bytes)
            return bytes.error();
        auto parsed = User::parse(bytes.value(), path.value().string());
        if (!parsed)
            return parsed.error();
        user = parsed.take();
        shared.currentUser = static_cast<std::uint8_t>(index);
        return model::Status::success();
    }

    // Writes the current user's file (profile and days, current version). Does nothing and
    // fails with BadValue when there are no user names. With release the days are dropped once
    // written.
    model::Status writeUser(bool release)
    {
        if (shared.userNames.empty()) {
            return model::FileError{model::FileErrorCode::BadValue, sharedPath().string(), 0,
                                    "the handheld has no users"};
        }
        auto path = userPath(shared.currentUser);
        if (!path)
            return path.error();
        const model::Status written =
            model::writeFileAtomically(path.value(), user.serialize(), model::KeepBackup::No);
        if (written && release)
            user.days.clear();
        return written;
    }

    // Writes the shared file as the current version, the name count taken from the list. With
    // release the foods and definition lists are dropped once written.
    model::Status writeShared(bool release)
    {
        shared.version = Shared::Version;
        const model::Status written =
            model::writeFileAtomically(sharedPath(), shared.serialize(), model::KeepBackup::No);
        if (written && release)
            shared.releaseLists();
        return written;
    }

private:
    std::filesystem::path m_folder;
};

} // namespace velmora::sync
