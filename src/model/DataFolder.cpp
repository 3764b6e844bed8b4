#include "model/DataFolder.h"

#include <functional>
#include <string_view>
#include <utility>

#include "model/Defaults.h"
#include "model/Normalisation.h"
#include "model/SafeFile.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "model/UserNames.h"

namespace velmora::model {

namespace fs = std::filesystem;

namespace {

std::size_t hashOf(const std::vector<std::uint8_t>& bytes)
{
    return std::hash<std::string_view>{}(
        std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

// A backup beside path that reads completely as a file of the kind, or an empty path.
fs::path usableBackup(const fs::path& path, FileKind kind)
{
    const fs::path backup = backupPathFor(path);
    auto bytes = readWholeFile(backup);
    if (!bytes || !fileKind(kind).rewrite(bytes.value(), backup.string()))
        return {};
    return backup;
}

FileError refusal(const fs::path& path, const char* why)
{
    return FileError{FileErrorCode::CannotWrite, path.string(), 0, why};
}

constexpr const char* NeverLoaded =
    "the user data was never loaded, so saving would replace it with nothing";
constexpr const char* KeptAsItIs = "it could not be read when loaded and is kept as it is";

} // namespace

void DataFolder::setPaths(fs::path foodsPath, fs::path dataDir)
{
    m_foodsPath = std::move(foodsPath);
    m_dataDir = std::move(dataDir);
}

std::optional<fs::path> DataFolder::userFilePath(std::size_t k) const
{
    const SharedData& shared = records().shared;
    if (k >= shared.userNames.size())
        return std::nullopt;
    const std::string& name = shared.userNames[k];
    if (checkUserName(name) != NameProblem::None)
        return std::nullopt;
    // The stored name is Windows-1252; the file name is the same text in the platform's own
    // encoding (through UTF-8), so that "Zoë" names a valid file everywhere.
    const std::string utf8 = cp1252ToUtf8(name) + ".db";
    return m_dataDir / fs::path(std::u8string(utf8.begin(), utf8.end()));
}

DataFolder::DamagedFile DataFolder::setAside(FileKind kind, const fs::path& path,
                                             const FileError& error)
{
    DamagedFile damaged;
    damaged.kind = kind;
    damaged.error = error;
    damaged.backup = usableBackup(path, kind);
    auto moved = moveAside(path);
    if (moved)
        damaged.movedTo = moved.value();
    return damaged;
}

DataFolder::LoadReport DataFolder::load()
{
    LoadReport report;
    m_sharedDamaged = false;
    m_userDamaged = false;
    m_loaded = false;
    m_lastUserDamage.reset();
    m_sharedHash = 0;
    m_userHash = 0;
    m_definitionsReleased = false;

    auto foodBytes = readWholeFile(m_foodsPath);
    if (!foodBytes) {
        // Without a food database nothing else is loaded, and so nothing may be saved either.
        if (foodBytes.error().code == FileErrorCode::NotFound)
            report.foodsMissing = true;
        else
            report.errors.push_back(foodBytes.error());
        return report;
    }
    auto foodsRead = FoodDatabase::parse(foodBytes.value(), m_foodsPath.string());
    if (foodsRead) {
        records().foods = foodsRead.take();
    } else {
        // The collections read completely are used; the journals only refer to foods by number,
        // so nothing of the user's data is lost by a partial food database.
        auto salvaged = FoodDatabase::salvage(foodBytes.value(), m_foodsPath.string());
        records().foods = std::move(salvaged.value);
        report.errors.push_back(foodsRead.error());
        report.damaged.push_back(setAside(FileKind::Foods, m_foodsPath, foodsRead.error()));
    }
    report.foodsLoaded = true;
    foodBytes = std::vector<std::uint8_t>{};

    if (loadShared(report)) {
        FileError error;
        report.userFileRead = loadCurrentUser(&error);
        if (!report.userFileRead && !error.file.empty()) {
            report.errors.push_back(error);
            if (m_lastUserDamage)
                report.damaged.push_back(*m_lastUserDamage);
        }
        m_loaded = true;
    }
    records().foods.catalogue().appendComputed();
    return report;
}

bool DataFolder::loadShared(LoadReport& report)
{
    Store& s = records();
    auto bytes = readWholeFile(sharedPath());
    if (!bytes && bytes.error().code == FileErrorCode::NotFound) {
        s.shared = SharedData{};
        createExampleUser(s.shared);
        s.journal.user = newUserProfile(s.foods);
        applyExampleProfile(s.journal.user, s.shared);
        report.exampleCreated = true;
        return true;
    }
    if (!bytes) {
        // It exists but cannot be read: keep away from it entirely.
        report.errors.push_back(bytes.error());
        m_sharedDamaged = true;
        return false;
    }
    auto parsed = SharedData::parse(bytes.value(), sharedPath().string());
    if (parsed) {
        s.shared = parsed.take();
        report.sharedLoaded = true;
        m_sharedHash = hashOf(bytes.value());
    } else {
        auto salvaged = SharedData::salvage(bytes.value(), sharedPath().string());
        const DamagedFile damaged = setAside(FileKind::Shared, sharedPath(), parsed.error());
        report.errors.push_back(parsed.error());
        report.damaged.push_back(damaged);
        if (damaged.movedTo.empty()) {
            // Still in its place: it must not be written over, and nothing depends on it.
            m_sharedDamaged = true;
            return false;
        }
        s.shared = std::move(salvaged.value);
        if (s.shared.userNames.empty()) {
            createExampleUser(s.shared);
            s.journal.user = newUserProfile(s.foods);
            applyExampleProfile(s.journal.user, s.shared);
        }
    }
    s.normalise();
    return true;
}

bool DataFolder::loadCurrentUser(FileError* error)
{
    Store& s = records();
    m_userDamaged = false;
    m_lastUserDamage.reset();
    if (s.shared.userNames.empty()) {
        createExampleUser(s.shared);
        s.journal.user = newUserProfile(s.foods);
        applyExampleProfile(s.journal.user, s.shared);
    }
    std::size_t index = s.shared.currentUser;
    if (index >= s.shared.userNames.size())
        index = 0;
    s.shared.currentUser = static_cast<std::uint8_t>(index);
    const auto path = userFilePath(index);
    if (!path) {
        s.journal.days.clear();
        m_userDamaged = true; // nothing may be written under a name that is not a safe file name
        if (error)
            *error = FileError{FileErrorCode::UnsafeName, s.shared.userNames[index], 0,
                               nameProblemText(checkUserName(s.shared.userNames[index]))};
        return false;
    }
    auto bytes = readWholeFile(*path);
    if (!bytes) {
        // A missing file is a new user: an empty journal, and the profile in memory stays as it
        // is (a new user starts from the previous user's settings).
        s.journal.days.clear();
        if (bytes.error().code != FileErrorCode::NotFound) {
            m_userDamaged = true;
            if (error)
                *error = bytes.error();
        }
        return false;
    }
    auto parsed = UserJournal::parse(bytes.value(), path->string());
    if (!parsed) {
        auto salvaged = UserJournal::salvage(bytes.value(), path->string());
        m_lastUserDamage = setAside(FileKind::User, *path, parsed.error());
        if (error)
            *error = parsed.error();
        s.journal.days.clear();
        if (m_lastUserDamage->movedTo.empty()) {
            m_userDamaged = true;
            return false;
        }
        // What was read completely is used: the profile record when it was whole (else the one
        // in memory stays, as for a new user) and the day list when it was whole.
        if (salvaged.partsRead >= 1)
            s.journal.user = salvaged.value.user;
        s.journal.days = std::move(salvaged.value.days);
        s.normalise();
        return false;
    }
    s.journal = parsed.take();
    m_userHash = hashOf(bytes.value());
    m_userHashPath = *path;
    s.normalise();
    return true;
}

Status DataFolder::restoreSharedBackup()
{
    const fs::path backup = backupPathFor(sharedPath());
    auto bytes = readWholeFile(backup);
    if (!bytes)
        return bytes.error();
    if (auto parsed = SharedData::parse(bytes.value(), backup.string()); !parsed)
        return parsed.error();
    std::error_code ec;
    if (fs::exists(sharedPath(), ec)) {
        auto moved = moveAside(sharedPath());
        if (!moved)
            return moved.error();
    }
    if (Status s = writeFileAtomically(sharedPath(), bytes.value()); !s)
        return s;
    LoadReport report;
    m_sharedDamaged = false;
    m_definitionsReleased = false;
    if (!loadShared(report))
        return report.errors.empty()
                   ? FileError{FileErrorCode::CannotOpen, sharedPath().string(), 0, {}}
                   : report.errors.front();
    FileError error;
    loadCurrentUser(&error);
    m_loaded = true;
    return Status::success();
}

Status DataFolder::restoreUserBackup()
{
    const auto path = userFilePath(records().shared.currentUser);
    if (!path)
        return FileError{FileErrorCode::UnsafeName, records().currentUserName(), 0, {}};
    const fs::path backup = backupPathFor(*path);
    auto bytes = readWholeFile(backup);
    if (!bytes)
        return bytes.error();
    if (auto parsed = UserJournal::parse(bytes.value(), backup.string()); !parsed)
        return parsed.error();
    std::error_code ec;
    if (fs::exists(*path, ec)) {
        auto moved = moveAside(*path);
        if (!moved)
            return moved.error();
    }
    if (Status s = writeFileAtomically(*path, bytes.value()); !s)
        return s;
    FileError error;
    if (!loadCurrentUser(&error))
        return error;
    return Status::success();
}

std::vector<std::uint8_t> DataFolder::sharedBytes() const
{
    SharedData copy = records().shared;
    normaliseShared(copy);
    return copy.serialize();
}

std::vector<std::uint8_t> DataFolder::userBytes() const
{
    // Copying ten years of journal costs more than checking it, and the days rarely hold stale
    // references.
    if (m_definitionsReleased || !daysNeedNormalising(records().journal.days, records().shared))
        return records().journal.serialize();
    UserJournal copy = records().journal;
    normaliseDays(copy.days, records().shared);
    return copy.serialize();
}

bool DataFolder::hasUnsavedChanges() const
{
    if (!m_loaded)
        return false;
    std::error_code ec;
    if (hashOf(sharedBytes()) != m_sharedHash || !fs::exists(sharedPath(), ec))
        return true;
    const auto path = userFilePath(records().shared.currentUser);
    if (!path || m_userDamaged)
        return false;
    return hashOf(userBytes()) != m_userHash || m_userHashPath != *path || !fs::exists(*path, ec);
}

Status DataFolder::saveShared(Release release)
{
    if (!m_loaded)
        return refusal(sharedPath(), NeverLoaded);
    if (m_sharedDamaged)
        return refusal(sharedPath(), KeptAsItIs);
    SharedData& shared = records().shared;
    shared.version = CurrentFormatVersion;
    const auto bytes = sharedBytes();
    const std::size_t hash = hashOf(bytes);
    std::error_code ec;
    if (hash != m_sharedHash || !fs::exists(sharedPath(), ec)) {
        Status written = writeFileAtomically(sharedPath(), bytes, KeepBackup::Yes);
        if (!written)
            return written;
        m_sharedHash = hash;
    }
    if (release == Release::Yes) {
        // Shut-down: the days are normalised while the definitions they refer to are still
        // there, and the user's file that follows is written as they then are.
        records().normalise();
        m_definitionsReleased = true;
        shared.customFoods.clear();
        shared.fields.clear();
        shared.exercises.clear();
        shared.routines.clear();
        shared.variables.clear();
    }
    return Status::success();
}

Status DataFolder::saveCurrentUser(Release release)
{
    const SharedData& shared = records().shared;
    if (shared.userNames.empty())
        return Status::success();
    const auto path = userFilePath(shared.currentUser);
    if (!path) {
        const std::string name = shared.currentUser < shared.userNames.size()
                                     ? shared.userNames[shared.currentUser]
                                     : std::string();
        return FileError{FileErrorCode::UnsafeName, name, 0, {}};
    }
    if (!m_loaded)
        return refusal(*path, NeverLoaded);
    if (m_userDamaged)
        return refusal(*path, KeptAsItIs);
    const auto bytes = userBytes();
    const std::size_t hash = hashOf(bytes);
    std::error_code ec;
    if (hash != m_userHash || m_userHashPath != *path || !fs::exists(*path, ec)) {
        Status written = writeFileAtomically(*path, bytes, KeepBackup::Yes);
        if (!written)
            return written;
        m_userHash = hash;
        m_userHashPath = *path;
    }
    if (release == Release::Yes)
        records().journal.days.clear();
    return Status::success();
}

} // namespace velmora::model
