#include "make-character/Quantizer.h"

#include <cstdlib>
#include <gtest/gtest.h>

using lumo::quantize;

std::uint8_t indexAt(const agent::acs::Image& image, int x, int y)
{
    return static_cast<std::uint8_t>(image.pixels[(image.height - 1 - y) * image.stride() + x]);
}

TEST(Quantizer, KeepsFewColoursExactlyAndTransparencyApart)
{
    const QRgb colours[2][5] = {
        {qRgb(10, 20, 30), qRgba(200, 0, 0, 127), qRgb(255, 0, 255), qRgb(10, 20, 31), 0},
        {qRgba(1, 2, 3, 128), qRgb(250, 250, 250), qRgb(10, 20, 30), qRgb(0, 0, 0), 0},
    };
    const QImage picture(reinterpret_cast<const uchar*>(colours), 5, 2, QImage::Format_ARGB32);

    const lumo::IndexedImages result = quantize({picture});

    ASSERT_EQ(result.palette.size(), 256u);
    EXPECT_EQ(result.palette[lumo::transparentIndex], lumo::transparentKey);
    ASSERT_EQ(result.images.size(), 1u);
    const agent::acs::Image& image = result.images.front();
    ASSERT_EQ(image.pixels.size(), 16);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 5; ++x) {
            SCOPED_TRACE(testing::Message() << "pixel " << x << "," << y);
            const QRgb expected = colours[y][x];
            const std::uint8_t index = indexAt(image, x, y);
            // The key colour drawn on purpose must still show, so it may not use the key's index.
            EXPECT_EQ(index == lumo::transparentIndex, qAlpha(expected) < 128);
            if (qAlpha(expected) >= 128 && expected != qRgb(255, 0, 255)) {
                EXPECT_EQ(result.palette[index], expected & 0xFFFFFFu);
            }
        }
    EXPECT_NE(indexAt(image, 0, 0), indexAt(image, 3, 0)) << "near colours stay distinct";
}

TEST(Quantizer, ReducesManyColoursToAPaletteCloseToThem)
{
    // 4096 colours, with one flat colour far more frequent than the rest.
    QImage picture(64, 80, QImage::Format_ARGB32);
    picture.fill(qRgb(169, 221, 240));
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            picture.setPixel(x, y, qRgb(x * 4, y * 4, (x + y) * 2));

    const lumo::IndexedImages result = quantize({picture, picture.copy(0, 0, 7, 3)});

    ASSERT_EQ(result.images.size(), 2u);
    const agent::acs::Image& image = result.images.front();
    EXPECT_EQ(result.palette[indexAt(image, 10, 70)], 0xA9DDF0u);
    int worst = 0;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) {
            const std::uint8_t index = indexAt(image, x, y);
            ASSERT_NE(index, lumo::transparentIndex);
            const QRgb want = picture.pixel(x, y);
            const std::uint32_t got = result.palette[index];
            worst = std::max({worst, std::abs(qRed(want) - int(got >> 16 & 0xFF)),
                              std::abs(qGreen(want) - int(got >> 8 & 0xFF)),
                              std::abs(qBlue(want) - int(got & 0xFF))});
        }
    EXPECT_LE(worst, 24);
    EXPECT_EQ(indexAt(result.images[1], 6, 2), indexAt(image, 6, 2)) << "images share one palette";
}
