// Not a test of its own: makes the pictures of the guide, in the folder of its pages, which TABRIX_GUIDE names.
// scripts/guide-pictures.sh runs it.

#include "tests/guide/GuideParts.h"
#include "tests/guide/GuideScenes.h"

#include <QFile>

using namespace Qt::StringLiterals;

class GuidePictures : public GuideScenes
{
};

TEST_P(GuidePictures, areMade)
{
    const QString folder = qEnvironmentVariable("TABRIX_GUIDE") + u'/' + language() + u'/';
    for (const Scene &scene : scenes()) {
        QFile page(folder + QLatin1StringView(scene.page) + u".html"_s);
        ASSERT_TRUE(page.open(QIODevice::ReadOnly)) << page.fileName().toStdString();
        const QString picture = QLatin1StringView(scene.picture) + u".png"_s;
        const QStringList parts = namedParts(QString::fromUtf8(page.readAll()), picture);
        (this->*scene.open)([&](QWidget &window) {
            for (const QString &part : parts) {
                EXPECT_FALSE(partPlace(window, part).isEmpty()) << scene.picture << " has no " << part.toStdString();
            }
            EXPECT_TRUE(numberedPicture(window, parts).save(folder + picture, "PNG", 0));
        });
    }
}

INSTANTIATE_TEST_SUITE_P(
    , GuidePictures, testing::Values("en", "ja"), [](const auto &language) { return std::string(language.param); });
