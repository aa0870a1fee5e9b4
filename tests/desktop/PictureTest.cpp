#include "desktop/Picture.h"

#include "tests/support/ContrastRatio.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPixmap>

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureNumbers[] = {1000, 1001, 1002, 1003, 1004, 1010, 1011, 1012, 1013, 1014, 1015, 1016, 1017, 1018,
    1019, 1020, 1021, 1022, 1023, 1024, 1025};
constexpr int sizes[] = {16, 24, 32, 64};

QImage image(const QIcon &icon, int size, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap({size, size}, 1, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// The share of the picture's area that has at least that contrast to the background.
double visibleShare(const QIcon &icon, const QColor &background, double leastContrast)
{
    constexpr int size = 64;
    QImage canvas(size, size, QImage::Format_ARGB32);
    canvas.fill(background);
    QPainter(&canvas).drawImage(0, 0, image(icon, size));
    int visible = 0;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            visible += contrastRatio(canvas.pixelColor(x, y), background) >= leastContrast;
        }
    }
    return double(visible) / (size * size);
}

int paintedPixels(const QImage &drawn)
{
    int painted = 0;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            painted += drawn.pixelColor(x, y).alphaF() > 0.25;
        }
    }
    return painted;
}

bool isSecond(int number)
{
    return number == 1002 || number == 1004 || (number >= 1010 && number % 2 == 1);
}

class PictureNumber : public testing::TestWithParam<int>
{
};

class PicturePair : public testing::TestWithParam<int>
{
};

} // namespace

TEST_P(PictureNumber, isDrawnInEverySize)
{
    const QIcon icon = Picture::icon(GetParam());
    ASSERT_FALSE(icon.isNull());
    for (const int size : sizes) {
        const QImage drawn = image(icon, size);
        EXPECT_EQ(drawn.size(), QSize(size, size));
        EXPECT_GT(paintedPixels(drawn), size * size / 10) << size;
    }
}

TEST_P(PictureNumber, isReadableOnLightAndDarkPalettes)
{
    // A disabled picture is fainter, but still visible.
    const double leastContrast = isSecond(GetParam()) ? 1.7 : 2.9;
    const QIcon icon = Picture::icon(GetParam());
    EXPECT_GT(visibleShare(icon, QColor(0xf0, 0xf0, 0xf0), leastContrast), 0.09);
    EXPECT_GT(visibleShare(icon, QColor(0x2a, 0x2e, 0x32), leastContrast), 0.09);
}

TEST_P(PictureNumber, isDrawnAnewForAHighResolutionScreen)
{
    const QPixmap doubled = Picture::icon(GetParam()).pixmap({24, 24}, 2);
    EXPECT_EQ(doubled.size(), QSize(48, 48));
    EXPECT_NE(
        doubled.toImage().convertToFormat(QImage::Format_ARGB32), image(Picture::icon(GetParam()), 24).scaled(48, 48));
}

INSTANTIATE_TEST_SUITE_P(All, PictureNumber, testing::ValuesIn(pictureNumbers));

TEST_P(PicturePair, secondPictureIsTheGreyOneOfADisabledControl)
{
    const QIcon icon = Picture::icon(GetParam(), GetParam() + 1);
    const QImage disabled = image(icon, 32, QIcon::Disabled);
    EXPECT_NE(disabled, image(icon, 32));
    EXPECT_EQ(disabled, image(Picture::icon(GetParam() + 1), 32));
    for (int y = 0; y < disabled.height(); ++y) {
        for (int x = 0; x < disabled.width(); ++x) {
            const QColor colour = disabled.pixelColor(x, y);
            if (colour.alpha() > 100) {
                EXPECT_LT(colour.hsvSaturationF(), 0.12) << x << ',' << y;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, PicturePair, testing::Values(1001, 1003, 1010, 1012, 1014, 1016, 1018, 1020, 1022, 1024));

TEST(Picture, allPicturesAreDifferent)
{
    QList<QImage> seen;
    for (const int number : pictureNumbers) {
        const QImage drawn = image(Picture::icon(number), 32);
        EXPECT_FALSE(seen.contains(drawn)) << number;
        seen << drawn;
    }
}

TEST(Picture, otherNumbersHaveNone)
{
    for (const int number : {0, 999, 1005, 1009, 1026}) {
        EXPECT_TRUE(Picture::icon(number).isNull()) << number;
    }
}

TEST(Picture, programHasAnIcon)
{
    EXPECT_GT(visibleShare(Picture::programIcon(), Qt::white, 1.5), 0.5);
    EXPECT_GT(visibleShare(Picture::programIcon(), Qt::black, 1.5), 0.5);
}
