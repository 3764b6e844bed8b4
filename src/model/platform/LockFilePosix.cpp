// FolderLock's part of POSIX systems: flock on the lock file. See LockFile.h.
#include "model/platform/LockFile.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace velmora::model::platform {

namespace fs = std::filesystem;

namespace {

int fdOf(LockHandle h)
{
    return static_cast<int>(h);
}

} // namespace

std::optional<LockHandle> openLockFile(const fs::path& path, bool create, std::string& error)
{
    // Readable by all so that any program can say who holds the folder; it names no data.
    const int fd = create ? ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644)
                          : ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error = std::strerror(errno);
        return std::nullopt;
    }
    return fd;
}

// flock belongs to the open file, not to the process: a second open of the file in this program
// conflicts as another program would, and closing some other descriptor of the file (as reading
// the holder does) leaves the lock alone, unlike fcntl's record locks.
bool tryLock(LockHandle h, bool exclusive, bool& busy)
{
    for (;;) {
        if (::flock(fdOf(h), (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0)
            return true;
        if (errno != EINTR)
            break;
    }
    busy = errno == EWOULDBLOCK;
    return false;
}

void unlock(LockHandle h)
{
    ::flock(fdOf(h), LOCK_UN);
}

void closeHandle(LockHandle h)
{
    ::close(fdOf(h));
}

std::string readText(LockHandle h)
{
    std::string text;
    char buffer[512];
    off_t at = 0;
    while (text.size() < 4096) {
        const ssize_t n = ::pread(fdOf(h), buffer, sizeof buffer, at);
        if (n <= 0)
            break;
        text.append(buffer, static_cast<std::size_t>(n));
        at += n;
    }
    return text;
}

bool replaceText(LockHandle h, const std::string& text)
{
    return ::ftruncate(fdOf(h), 0) == 0 &&
           ::pwrite(fdOf(h), text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()) &&
           ::fsync(fdOf(h)) == 0;
}

std::int64_t processId()
{
    return static_cast<std::int64_t>(::getpid());
}

std::string hostName()
{
    char name[256] = {};
    if (::gethostname(name, sizeof name - 1) != 0)
        return {};
    return name;
}

} // namespace velmora::model::platform
