#include "ZipArchive.h"

#include <zip.h>

#include <system_error>

namespace velmora::foodsdb {

using model::FileError;
using model::FileErrorCode;

struct ZipArchive::Handle
{
    zip_t* zip = nullptr;
    ~Handle()
    {
        if (zip)
            zip_discard(zip);
    }
};

namespace {

// Entries of the USDA data are small; anything near this size means a damaged directory.
constexpr zip_uint64_t MaxEntrySize = 256u * 1024u * 1024u;

FileError damaged(const std::string& file, std::string detail)
{
    return FileError{FileErrorCode::BadValue, file, 0, std::move(detail)};
}

} // namespace

ZipArchive::ZipArchive(std::unique_ptr<Handle> handle, std::string fileName)
    : m_handle(std::move(handle)), m_fileName(std::move(fileName))
{
}

ZipArchive::ZipArchive(ZipArchive&&) noexcept = default;
ZipArchive& ZipArchive::operator=(ZipArchive&&) noexcept = default;
ZipArchive::~ZipArchive() = default;

model::Result<ZipArchive> ZipArchive::open(const std::filesystem::path& path)
{
    const std::string name = path.string();
    std::error_code ec;
    if (!std::filesystem::exists(path, ec))
        return FileError{FileErrorCode::NotFound, name, 0, "the file does not exist"};
    if (!std::filesystem::is_regular_file(path, ec))
        return FileError{FileErrorCode::CannotOpen, name, 0, "not a regular file"};

    int err = 0;
    zip_t* zip = zip_open(name.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &err);
    if (!zip) {
        zip_error_t error;
        zip_error_init_with_code(&error, err);
        std::string text = zip_error_strerror(&error);
        zip_error_fini(&error);
        if (err == ZIP_ER_OPEN || err == ZIP_ER_READ)
            return FileError{FileErrorCode::CannotOpen, name, 0, text};
        return damaged(name, "not a readable zip archive (" + text + ")");
    }
    auto handle = std::make_unique<Handle>();
    handle->zip = zip;
    return ZipArchive(std::move(handle), name);
}

std::vector<std::string> ZipArchive::entryNames() const
{
    std::vector<std::string> names;
    const zip_int64_t count = zip_get_num_entries(m_handle->zip, 0);
    names.reserve(count > 0 ? static_cast<std::size_t>(count) : 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        const char* n = zip_get_name(m_handle->zip, static_cast<zip_uint64_t>(i), ZIP_FL_ENC_RAW);
        if (n)
            names.emplace_back(n);
    }
    return names;
}

bool ZipArchive::contains(const std::string& name) const
{
    return zip_name_locate(m_handle->zip, name.c_str(), 0) >= 0;
}

model::Result<std::string> ZipArchive::read(const std::string& name) const
{
    const std::string where = m_fileName + " (entry " + name + ")";
    zip_stat_t st;
    zip_stat_init(&st);
    if (zip_stat(m_handle->zip, name.c_str(), 0, &st) != 0)
        return damaged(m_fileName, "the archive has no entry " + name);
    if (!(st.valid & ZIP_STAT_SIZE) || st.size > MaxEntrySize)
        return damaged(where, "the entry's size is not plausible");

    zip_file_t* file = zip_fopen_index(m_handle->zip, st.index, 0);
    if (!file)
        return damaged(where, std::string("cannot open the entry: ") + zip_strerror(m_handle->zip));

    std::string content(static_cast<std::size_t>(st.size), '\0');
    zip_uint64_t done = 0;
    while (done < st.size) {
        const zip_int64_t n = zip_fread(file, content.data() + done, st.size - done);
        if (n < 0) {
            std::string text = zip_error_strerror(zip_file_get_error(file));
            zip_fclose(file);
            return damaged(where, "the entry is damaged (" + text + ")");
        }
        if (n == 0)
            break;
        done += static_cast<zip_uint64_t>(n);
    }
    // One more read reaches the end of the compressed stream, where the checksum is compared.
    char extra = 0;
    const zip_int64_t tail = zip_fread(file, &extra, 1);
    const bool badTail = tail != 0;
    std::string tailText = badTail ? zip_error_strerror(zip_file_get_error(file)) : "";
    const int closeResult = zip_fclose(file);
    if (done != st.size)
        return damaged(where, "the entry ends early");
    if (badTail)
        return damaged(where, tail > 0 ? "the entry is longer than its directory says"
                                       : "the entry is damaged (" + tailText + ")");
    if (closeResult != 0)
        return damaged(where, "the entry fails its checksum");
    return content;
}

} // namespace velmora::foodsdb
