#include "agent/acs/ImageReader.h"

#include "agent/acs/Decompressor.h"
#include "agent/acs/FormatContext.h"

namespace agent::acs
{
namespace
{

constexpr std::uint32_t MinImageRecordBytes = 10;

QByteArray readRegion(ByteReader& in, DecodeBudget& budget)
{
    const std::uint32_t compressedSize = in.u32();
    const std::uint32_t size = in.u32();
    if (compressedSize == 0) {
        const QByteArrayView stored = in.view(qsizetype(size));
        budget.charge(stored.size());
        return stored.toByteArray();
    }
    const QByteArrayView stored = in.view(qsizetype(compressedSize));
    budget.charge(size);
    return decompress(stored, qsizetype(size));
}

} // namespace

Image readImage(QByteArrayView file, Locator record, DecodeBudget& budget)
{
    ByteReader in = ByteReader::at(file, record);
    Image image;
    if (record.size < MinImageRecordBytes || in.u8() == 0) {
        image.present = false;
        return image;
    }
    image.width = in.u16();
    image.height = in.u16();
    const bool compressed = in.u8() != 0;
    const qsizetype pixelBytes = qsizetype(image.stride()) * image.height;
    const std::uint32_t storedBytes = in.u32();
    const QByteArrayView stored =
        withContext(QStringLiteral("pixel data"), [&] { return in.view(qsizetype(storedBytes)); });
    if (compressed) {
        budget.charge(pixelBytes);
        image.pixels = decompress(stored, pixelBytes);
    } else {
        if (stored.size() < pixelBytes)
            failFormat(QStringLiteral("pixel data holds %1 of %2 bytes")
                           .arg(stored.size())
                           .arg(pixelBytes));
        budget.charge(pixelBytes);
        image.pixels = stored.first(pixelBytes).toByteArray();
    }
    image.region =
        withContext(QStringLiteral("region data"), [&] { return readRegion(in, budget); });
    return image;
}

} // namespace agent::acs
