#include "model/DataFolder.h"

#include <map>
#include <utility>

#include "model/Clock.h"
#include "model/Defaults.h"
#include "model/Normalisation.h"
#include "model/SafeFile.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "model/UserNames.h"

namespace velmora::model {

namespace fs = std::filesystem;

namespace {

FileError refusal(const fs::path& path, const WriteRefusal& why)
{
    return FileError{why.code, path.string(), 0, why.reason};
}

std::string quoted(const fs::path& path)
{
    return "\"" + path.string() + "\"";
}

// "Anna.db could not be read (Permission denied) and is kept as it is".
std::string keptAsItIs(const fs::path& path, const FileError& why)
{
    std::string text = path.filename().string() + " could not be read";
    if (!why.detail.empty())
        text += " (" + why.detail + ")";
    return text + " and is kept as it is";
}

// A reason when the operating system will not let this program write at path; nothing when it
// may, or when there is nothing there yet.
std::optional<std::string> notWritable(FileSystem& files, const fs::path& path, bool folder)
{
    const Status s = files.canWrite(path);
    if (s || s.error().code == FileErrorCode::NotFound)
        return std::nullopt;
    std::string text = folder ? "the data folder " + quoted(path) : path.filename().string();
    text += " cannot be written";
    if (!s.error().detail.empty())
        text += " (" + s.error().detail + ")";
    return text;
}

// The bytes of a shared record that holds only one list of d: two of them differ exactly when
// that list differs.
template <class T>
std::vector<std::uint8_t> listBytes(const SharedData& d, std::vector<T> SharedData::*list)
{
    SharedData only;
    only.*list = d.*list;
    return only.serialize();
}

std::vector<std::uint8_t> dayBytes(const JournalDay& day)
{
    ArchiveWriter out;
    writeJournalDay(out, day);
    return out.take();
}

std::vector<std::uint8_t> profileBytes(const User& user)
{
    ArchiveWriter out;
    user.write(out);
    return out.take();
}

} // namespace

std::string keptVersionText(const KeptVersion& kept)
{
    return kept.file.filename().string() +
           " was changed by another program since Velmora read it; that version is kept as " +
           quoted(kept.keptAs);
}

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

bool DataFolder::missing(const fs::path& path) const
{
    auto facts = m_files->facts(path);
    return !facts && facts.error().code == FileErrorCode::NotFound;
}

DataFolder::DamagedFile DataFolder::setAside(FileKind kind, const fs::path& path,
                                             const FileError& error,
                                             const std::vector<ListKept>& lists)
{
    DamagedFile damaged;
    damaged.kind = kind;
    damaged.error = error;
    damaged.kept = keptText(lists);
    const std::time_t stamp = static_cast<std::time_t>(now());
    auto moved = moveAside(path, "damaged", stamp, *m_files);
    if (!moved)
        return damaged; // left in its place and protected: no save replaces it or its backup
    damaged.movedTo = moved.value();
    // The salvaged records are saved soon, and a save keeps the file it replaces as the backup:
    // the good backup goes out of the way first, so that the user can still choose it.
    const fs::path backup = backupPathFor(path);
    auto bytes = readWholeFile(backup, *m_files);
    if (kind != FileKind::Foods && bytes &&
        fileKind(kind).rewrite(bytes.value(), backup.string())) {
        const fs::path kept = datedName(path, "backup", stamp);
        if (m_files->rename(backup, kept))
            damaged.backup = kept;
    }
    return damaged;
}

DataFolder::LoadReport DataFolder::load()
{
    LoadReport report;
    m_sharedDamaged = false;
    m_userDamaged = false;
    m_loaded = false;
    m_lastUserDamage.reset();
    m_sharedStamp = FileStamp::none();
    m_userStamp = FileStamp::none();
    m_userStampPath.clear();

    auto foodBytes = readWholeFile(m_foodsPath, *m_files);
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
        report.damaged.push_back(setAside(FileKind::Foods, m_foodsPath, foodsRead.error(), {}));
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
    m_sharedStamp = FileStamp::none();
    auto bytes = readWholeFile(sharedPath(), *m_files);
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
        m_sharedProblem = bytes.error();
        return false;
    }
    auto parsed = SharedData::parse(bytes.value(), sharedPath().string());
    if (parsed) {
        s.shared = parsed.take();
        report.sharedLoaded = true;
        m_sharedStamp = FileStamp::of(sharedPath(), bytes.value(), *m_files);
    } else {
        auto salvaged = SharedData::salvage(bytes.value(), sharedPath().string());
        const DamagedFile damaged =
            setAside(FileKind::Shared, sharedPath(), parsed.error(), salvaged.lists);
        report.errors.push_back(parsed.error());
        report.damaged.push_back(damaged);
        if (damaged.movedTo.empty()) {
            // Still in its place: it must not be written over, and nothing depends on it.
            m_sharedDamaged = true;
            m_sharedProblem = parsed.error();
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
    m_userProblem = FileError{};
    m_lastUserDamage.reset();
    m_userStamp = FileStamp::none();
    m_userStampPath.clear();
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
        m_userProblem = FileError{FileErrorCode::UnsafeName, s.shared.userNames[index], 0,
                                  nameProblemText(checkUserName(s.shared.userNames[index]))};
        if (error)
            *error = m_userProblem;
        return false;
    }
    m_userStampPath = *path;
    auto bytes = readWholeFile(*path, *m_files);
    if (!bytes) {
        // A missing file is a new user: an empty journal, and the profile in memory stays as it
        // is (a new user starts from the previous user's settings).
        s.journal.days.clear();
        if (bytes.error().code != FileErrorCode::NotFound) {
            m_userDamaged = true;
            m_userProblem = bytes.error();
            if (error)
                *error = bytes.error();
        }
        return false;
    }
    auto parsed = UserJournal::parse(bytes.value(), path->string());
    if (!parsed) {
        auto salvaged = UserJournal::salvage(bytes.value(), path->string());
        m_lastUserDamage = setAside(FileKind::User, *path, parsed.error(), salvaged.lists);
        if (error)
            *error = parsed.error();
        s.journal.days.clear();
        if (m_lastUserDamage->movedTo.empty()) {
            m_userDamaged = true;
            m_userProblem = parsed.error();
            return false;
        }
        // Every record read completely is used: the profile record when it was whole (else the
        // one in memory stays, as for a new user) and every whole day.
        if (salvaged.partsRead >= 1)
            s.journal.user = salvaged.value.user;
        s.journal.days = std::move(salvaged.value.days);
        s.normalise();
        return false;
    }
    s.journal = parsed.take();
    m_userStamp = FileStamp::of(*path, bytes.value(), *m_files);
    s.normalise();
    return true;
}

Status DataFolder::restoreBackup(const DamagedFile& damaged)
{
    if (damaged.kind == FileKind::Foods || damaged.backup.empty())
        return FileError{FileErrorCode::NotFound, damaged.error.file, 0, "there is no backup"};
    fs::path path;
    if (damaged.kind == FileKind::Shared) {
        path = sharedPath();
    } else {
        const auto user = userFilePath(records().shared.currentUser);
        if (!user)
            return FileError{FileErrorCode::UnsafeName, records().currentUserName(), 0, {}};
        path = *user;
    }
    auto bytes = readWholeFile(damaged.backup, *m_files);
    if (!bytes)
        return bytes.error();
    if (auto checked = fileKind(damaged.kind).rewrite(bytes.value(), damaged.backup.string());
        !checked)
        return checked.error();
    if (!missing(path)) {
        auto moved = moveAside(path, "salvaged", static_cast<std::time_t>(now()), *m_files);
        if (!moved)
            return moved.error();
    }
    if (Status s = writeFileAtomically(path, bytes.value(), KeepBackup::No, *m_files); !s)
        return s;
    // The backup is the file's backup again; were the rename to fail it stays where it was.
    (void)m_files->rename(damaged.backup, backupPathFor(path));
    if (damaged.kind == FileKind::User) {
        FileError error;
        if (!loadCurrentUser(&error))
            return error;
        return Status::success();
    }
    LoadReport report;
    m_sharedDamaged = false;
    if (!loadShared(report))
        return report.errors.empty()
                   ? FileError{FileErrorCode::CannotOpen, sharedPath().string(), 0, {}}
                   : report.errors.front();
    FileError error;
    loadCurrentUser(&error);
    m_loaded = true;
    return Status::success();
}

std::optional<WriteRefusal> DataFolder::writeRefusal() const
{
    using Scope = WriteRefusal::Scope;
    if (!m_readOnlyReason.empty())
        return WriteRefusal{Scope::Folder, FileErrorCode::CannotWrite, m_readOnlyReason};
    if (m_sharedDamaged)
        return WriteRefusal{Scope::Folder, FileErrorCode::CannotWrite,
                            keptAsItIs(sharedPath(), m_sharedProblem)};
    if (!m_loaded)
        return WriteRefusal{Scope::Folder, FileErrorCode::CannotWrite,
                            "the food database could not be read, so nothing of the user data "
                            "was loaded"};
    if (auto why = notWritable(*m_files, m_dataDir, true))
        return WriteRefusal{Scope::Folder, FileErrorCode::CannotWrite, *why};
    if (auto why = notWritable(*m_files, sharedPath(), false))
        return WriteRefusal{Scope::Folder, FileErrorCode::CannotWrite, *why};
    const SharedData& shared = records().shared;
    if (shared.userNames.empty())
        return std::nullopt;
    const auto path = userFilePath(shared.currentUser);
    if (!path) {
        const std::string& name = shared.userNames[shared.currentUser];
        return WriteRefusal{Scope::CurrentUser, FileErrorCode::UnsafeName,
                            "the user name \"" + cp1252ToUtf8(name) + "\" cannot be a file name: " +
                                nameProblemText(checkUserName(name))};
    }
    if (m_userDamaged)
        return WriteRefusal{Scope::CurrentUser, FileErrorCode::CannotWrite,
                            keptAsItIs(*path, m_userProblem)};
    if (auto why = notWritable(*m_files, *path, false))
        return WriteRefusal{Scope::CurrentUser, FileErrorCode::CannotWrite, *why};
    return std::nullopt;
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
    if (!daysNeedNormalising(records().journal.days, records().shared))
        return records().journal.serialize();
    UserJournal copy = records().journal;
    normaliseDays(copy.days, records().shared);
    return copy.serialize();
}

bool DataFolder::hasUnsavedChanges() const
{
    if (!m_loaded)
        return false;
    const auto sharedNow = sharedBytes();
    if (!m_sharedStamp.existed || contentHash(sharedNow) != m_sharedStamp.hash ||
        missing(sharedPath()))
        return true;
    const auto path = userFilePath(records().shared.currentUser);
    if (!path || m_userDamaged)
        return false;
    return !m_userStamp.existed || m_userStampPath != *path ||
           contentHash(userBytes()) != m_userStamp.hash || missing(*path);
}

UnsavedChanges DataFolder::unsavedChanges() const
{
    UnsavedChanges out;
    if (!m_loaded)
        return out;
    SharedData memory;
    if (auto parsed = SharedData::parse(sharedBytes(), "memory"))
        memory = parsed.take();
    // The files are compared as a save would write them, so that only the user's changes count,
    // not the clean-up of references to definitions that are gone.
    SharedData disk;
    if (auto bytes = readWholeFile(sharedPath(), *m_files))
        if (auto parsed = SharedData::parse(bytes.value(), sharedPath().string())) {
            disk = parsed.take();
            normaliseShared(disk);
        }
    const auto differs = [&](auto list) {
        return listBytes(memory, list) != listBytes(disk, list);
    };
    if (differs(&SharedData::userNames))
        out.shared.push_back("users");
    if (differs(&SharedData::customFoods))
        out.shared.push_back("custom foods");
    if (differs(&SharedData::fields))
        out.shared.push_back("exercise fields");
    if (differs(&SharedData::exercises))
        out.shared.push_back("exercises");
    if (differs(&SharedData::routines))
        out.shared.push_back("routines");
    if (differs(&SharedData::variables))
        out.shared.push_back("variables");
    if (out.shared.empty() && memory.currentUser != disk.currentUser)
        out.shared.push_back("the current user");

    const auto path = userFilePath(records().shared.currentUser);
    if (!path || m_userDamaged)
        return out;
    UserJournal mine;
    if (auto parsed = UserJournal::parse(userBytes(), "memory"))
        mine = parsed.take();
    UserJournal theirs;
    bool onDisk = false;
    if (auto bytes = readWholeFile(*path, *m_files))
        if (auto parsed = UserJournal::parse(bytes.value(), path->string())) {
            theirs = parsed.take();
            normaliseDays(theirs.days, records().shared);
            onDisk = true;
        }
    out.profile = !onDisk || profileBytes(mine.user) != profileBytes(theirs.user);
    std::map<TimeT, std::pair<std::vector<std::uint8_t>, std::vector<std::uint8_t>>> byDate;
    for (const JournalDay& d : mine.days)
        byDate[d.date].first = dayBytes(d);
    for (const JournalDay& d : theirs.days)
        byDate[d.date].second = dayBytes(d);
    for (const auto& [date, versions] : byDate)
        if (versions.first != versions.second)
            ++out.days;
    return out;
}

Status DataFolder::writeChecked(const fs::path& path, const std::vector<std::uint8_t>& bytes,
                                FileStamp& stamp)
{
    if (stamp.existed && contentHash(bytes) == stamp.hash && !missing(path))
        return Status::success(); // nothing new; the backup keeps the last different version
    auto change = changeSince(path, stamp, *m_files);
    if (!change)
        return FileError{FileErrorCode::CannotWrite, path.string(), 0,
                         "it could not be read to see whether another program changed it (" +
                             change.error().detail + "), so it is not written over"};
    if (change.value() == DiskChange::Changed || change.value() == DiskChange::Created) {
        // Someone else wrote the file since this program read it: their version is kept beside
        // it, never written over.
        auto kept = keepOtherVersion(path, static_cast<std::time_t>(now()), *m_files);
        if (!kept)
            return FileError{FileErrorCode::CannotWrite, path.string(), 0,
                             "another program changed it since Velmora read it, and that version "
                             "could not be kept beside it (" +
                                 kept.error().detail + "), so it is not written over"};
        m_kept.push_back({path, kept.value()});
    }
    if (Status written = writeFileAtomically(path, bytes, KeepBackup::Yes, *m_files); !written) {
        // A failure after the rename (the folder's sync) leaves this program's content in place:
        // the next save must not take it for another program's.
        const FileStamp ours = FileStamp::of(path, bytes, *m_files);
        if (auto after = changeSince(path, ours, *m_files);
            after && after.value() == DiskChange::Unchanged)
            stamp = ours;
        return written;
    }
    stamp = FileStamp::of(path, bytes, *m_files);
    return Status::success();
}

Status DataFolder::saveShared()
{
    const auto refused = writeRefusal();
    if (refused && refused->scope == WriteRefusal::Scope::Folder)
        return refusal(sharedPath(), *refused);
    records().shared.version = CurrentFormatVersion;
    return writeChecked(sharedPath(), sharedBytes(), m_sharedStamp);
}

Status DataFolder::saveCurrentUser()
{
    const SharedData& shared = records().shared;
    const auto path = userFilePath(shared.currentUser);
    const auto refused = writeRefusal();
    if (refused && refused->scope == WriteRefusal::Scope::Folder)
        return refusal(path ? *path : m_dataDir, *refused);
    if (shared.userNames.empty())
        return Status::success();
    if (refused)
        return refusal(path ? *path : fs::path(shared.userNames[shared.currentUser]), *refused);
    if (!path)
        return FileError{FileErrorCode::UnsafeName, shared.userNames[shared.currentUser], 0, {}};
    if (m_userStampPath != *path) {
        // Not read by this program: whatever lies there now is someone else's.
        m_userStamp = FileStamp::none();
        m_userStampPath = *path;
    }
    return writeChecked(*path, userBytes(), m_userStamp);
}

std::vector<KeptVersion> DataFolder::takeKeptVersions()
{
    return std::exchange(m_kept, {});
}

} // namespace velmora::model
