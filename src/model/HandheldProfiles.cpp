#include "model/HandheldProfiles.h"

#include <algorithm>
#include <string>

#include "model/HandheldArchive.h"

namespace velmora::model {

namespace {

// Diet profiles before this version end without their last setting.
constexpr std::uint32_t FirstVersionWithLastSetting = 340;

template <std::size_t N> void readBytes(ArchiveReader& in, std::array<std::uint8_t, N>& a)
{
    for (std::uint8_t& b : a)
        b = in.u8();
}

template <std::size_t N> void readWords(ArchiveReader& in, std::array<std::uint32_t, N>& a)
{
    for (std::uint32_t& w : a)
        w = in.u32();
}

template <std::size_t N> void writeBytes(ArchiveWriter& out, const std::array<std::uint8_t, N>& a)
{
    for (std::uint8_t b : a)
        out.u8(b);
}

template <std::size_t N> void writeWords(ArchiveWriter& out, const std::array<std::uint32_t, N>& a)
{
    for (std::uint32_t w : a)
        out.u32(w);
}

} // namespace

std::uint32_t TandryProfile::read(ArchiveReader& in)
{
    const std::uint32_t recordVersion = in.u32();
    readBytes(in, settings2);
    setting4 = in.u32();
    readBytes(in, settings5);
    readWords(in, settings8);
    readBytes(in, settings11);
    readWords(in, settings18);
    const std::size_t lengthAt = in.offset();
    const std::uint32_t length = in.u32();
    if (length > MaxTandryProfileEntries) {
        throw ArchiveError(FileErrorCode::BadValue, lengthAt,
                           "a profile list of at most 100 entries, not " + std::to_string(length));
    }
    setting22 = in.u32();
    readBytes(in, settings23);
    setting25 = in.u32();
    for (double& g : goals)
        g = in.f64();
    readWords(in, settings27);
    for (TimeT& d : dates)
        d = readSignedTime(in);
    setting29 = in.u32();
    entries.resize(length);
    for (std::uint32_t& e : entries)
        e = in.u32();
    readBytes(in, settings31);
    readBytes(in, settings32);
    lastSetting = recordVersion >= FirstVersionWithLastSetting ? in.u32() : 0;
    version = TandryFormatVersion;
    return recordVersion;
}

void TandryProfile::write(ArchiveWriter& out) const
{
    out.u32(TandryFormatVersion);
    writeBytes(out, settings2);
    out.u32(setting4);
    writeBytes(out, settings5);
    writeWords(out, settings8);
    writeBytes(out, settings11);
    writeWords(out, settings18);
    // The handheld keeps room for 100 entries only.
    const std::size_t length = std::min<std::size_t>(entries.size(), MaxTandryProfileEntries);
    out.u32(static_cast<std::uint32_t>(length));
    out.u32(setting22);
    writeBytes(out, settings23);
    out.u32(setting25);
    for (double g : goals)
        out.f64(g);
    writeWords(out, settings27);
    for (TimeT d : dates)
        writeSignedTime(out, d);
    out.u32(setting29);
    for (std::size_t i = 0; i < length; ++i)
        out.u32(entries[i]);
    writeBytes(out, settings31);
    writeBytes(out, settings32);
    out.u32(lastSetting);
}

std::uint32_t KorvelProfile::read(ArchiveReader& in)
{
    const std::uint32_t recordVersion = in.u32();
    readBytes(in, settings2);
    setting4 = in.u32();
    readBytes(in, settings5);
    readWords(in, settings8);
    readBytes(in, settings11);
    readWords(in, settings15);
    readBytes(in, settings18);
    setting20 = in.u32();
    readBytes(in, settings21);
    setting24 = in.u32();
    version = KorvelFormatVersion;
    return recordVersion;
}

void KorvelProfile::write(ArchiveWriter& out) const
{
    out.u32(KorvelFormatVersion);
    writeBytes(out, settings2);
    out.u32(setting4);
    writeBytes(out, settings5);
    writeWords(out, settings8);
    writeBytes(out, settings11);
    writeWords(out, settings15);
    writeBytes(out, settings18);
    out.u32(setting20);
    writeBytes(out, settings21);
    out.u32(setting24);
}

} // namespace velmora::model
