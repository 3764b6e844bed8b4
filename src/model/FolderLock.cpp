#include "model/FolderLock.h"

#include <chrono>
#include <ctime>
#include <sstream>
#include <string>
#include <thread>
#include <utility>

#include "model/platform/LockFile.h"

namespace velmora::model {

namespace fs = std::filesystem;

namespace {

using platform::LockHandle;

// The holder's text of a lock file that is locked elsewhere. The holder writes it just after
// taking the lock, so an empty text is read again for a moment before it is taken as unknown.
LockHolder holderIn(LockHandle h)
{
    for (int attempt = 0; attempt < 20; ++attempt) {
        if (auto holder = FolderLock::parse(platform::readText(h)))
            return *holder;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return {};
}

} // namespace

FolderLock::~FolderLock()
{
    release();
}

FolderLock::FolderLock(FolderLock&& other) noexcept
    : m_handle(std::exchange(other.m_handle, NoHandle)), m_folder(std::move(other.m_folder))
{
}

FolderLock& FolderLock::operator=(FolderLock&& other) noexcept
{
    if (this != &other) {
        release();
        m_handle = std::exchange(other.m_handle, NoHandle);
        m_folder = std::move(other.m_folder);
    }
    return *this;
}

FolderLock::Attempt FolderLock::acquire(const fs::path& folder)
{
    release();
    Attempt attempt;
    const fs::path path = folder / FileName;
    std::string error;
    const auto opened = platform::openLockFile(path, true, error);
    if (!opened) {
        attempt.error = FileError{FileErrorCode::CannotWrite, path.string(), 0, error};
        return attempt;
    }
    const LockHandle h = *opened;
    bool busy = false;
    if (!platform::tryLock(h, true, busy)) {
        if (busy) {
            attempt.outcome = Outcome::HeldByOther;
            attempt.holder = holderIn(h);
        } else {
            attempt.error = FileError{FileErrorCode::CannotWrite, path.string(), 0,
                                      "the folder's lock file cannot be locked"};
        }
        platform::closeHandle(h);
        return attempt;
    }
    // A holder's text under a free lock is what a program that did not end in order left.
    if (auto former = parse(platform::readText(h))) {
        attempt.wasStale = true;
        attempt.holder = *former;
    }
    // Were the text not written (a full disk), the folder is still held; others then cannot
    // name the holder.
    const LockHolder me{platform::processId(), platform::hostName(), std::time(nullptr)};
    (void)platform::replaceText(h, describe(me));
    m_handle = h;
    m_folder = folder;
    attempt.outcome = Outcome::Taken;
    return attempt;
}

void FolderLock::release()
{
    if (!held())
        return;
    const LockHandle h = m_handle;
    (void)platform::replaceText(h, {});
    platform::unlock(h);
    platform::closeHandle(h);
    m_handle = NoHandle;
    m_folder.clear();
}

std::optional<LockHolder> FolderLock::holderOf(const fs::path& folder)
{
    std::string error;
    const auto opened = platform::openLockFile(folder / FileName, false, error);
    if (!opened)
        return std::nullopt;
    const LockHandle h = *opened;
    bool busy = false;
    std::optional<LockHolder> holder;
    if (platform::tryLock(h, false, busy))
        platform::unlock(h);
    else if (busy)
        holder = holderIn(h);
    platform::closeHandle(h);
    return holder;
}

std::string FolderLock::holderText(const LockHolder& holder)
{
    std::string text = holder.processId > 0 ? "process " + std::to_string(holder.processId)
                                            : std::string("another process");
    if (!holder.host.empty())
        text += " on " + holder.host;
    if (holder.since > 0) {
        const std::time_t since = static_cast<std::time_t>(holder.since);
        std::tm fields{};
#if defined(_WIN32)
        localtime_s(&fields, &since);
#else
        localtime_r(&since, &fields);
#endif
        char when[32];
        std::strftime(when, sizeof when, "%Y-%m-%d %H:%M", &fields);
        text += std::string(", since ") + when;
    }
    return text;
}

std::string FolderLock::describe(const LockHolder& holder)
{
    if (holder.processId == 0)
        return {};
    return "process " + std::to_string(holder.processId) + "\nhost " + holder.host + "\nsince " +
           std::to_string(holder.since) + "\n";
}

std::optional<LockHolder> FolderLock::parse(const std::string& text)
{
    LockHolder h;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        const auto blank = line.find(' ');
        if (blank == std::string::npos)
            continue;
        const std::string key = line.substr(0, blank);
        const std::string value = line.substr(blank + 1);
        try {
            if (key == "process")
                h.processId = std::stoll(value);
            else if (key == "since")
                h.since = std::stoll(value);
            else if (key == "host")
                h.host = value;
        } catch (const std::exception&) {
            return std::nullopt;
        }
    }
    if (h.processId <= 0)
        return std::nullopt;
    return h;
}

} // namespace velmora::model
