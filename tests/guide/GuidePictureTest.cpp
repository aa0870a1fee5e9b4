// The pictures of the guide stay true: every part that a page names is there, and every picture is of the window as it
// is now. When a window has changed on purpose, scripts/guide-pictures.sh makes its pictures anew.

#include "help/HelpLibrary.h"
#include "tests/dialogs/DialogOpeners.h"
#include "tests/guide/GuideParts.h"
#include "tests/guide/GuideScenes.h"
#include "tests/help/HelpFile.h"

using namespace Qt::StringLiterals;

namespace {

class GuidePicture : public GuideScenes
{
protected:
    QString page(const QString &name) const
    {
        const QUrl start = library->topic(1);
        return QString::fromUtf8(library->data(start.resolved(QUrl(name + u".html"_s))));
    }
    QImage picture(const QString &file) const
    {
        return QImage::fromData(library->data(library->topic(1).resolved(QUrl(file))));
    }

    std::unique_ptr<HelpLibrary> library = HelpLibrary::open(helpFile(language()));
};

} // namespace

TEST_P(GuidePicture, namesPartsThatTheWindowHas)
{
    ASSERT_TRUE(library);
    for (const Scene &scene : scenes()) {
        SCOPED_TRACE(scene.picture);
        const QStringList parts =
            namedParts(page(QLatin1StringView(scene.page)), QLatin1StringView(scene.picture) + u".png"_s);
        EXPECT_GE(parts.size(), 2);
        (this->*scene.open)([&](QWidget &window) {
            for (const QString &part : parts) {
                const QRect place = partPlace(window, part);
                EXPECT_FALSE(place.isEmpty()) << part.toStdString();
                EXPECT_TRUE(window.rect().contains(place.center())) << part.toStdString();
            }
        });
    }
}

TEST_P(GuidePicture, isOfTheWindowAndTheListAsTheyAreNow)
{
    ASSERT_TRUE(library);
    for (const Scene &scene : scenes()) {
        SCOPED_TRACE(scene.picture);
        const QString file = QLatin1StringView(scene.picture) + u".png"_s;
        const QImage shown = picture(file);
        ASSERT_FALSE(shown.isNull());
        EXPECT_EQ(shown.text(u"Parts"_s), namedParts(page(QLatin1StringView(scene.page)), file).join(u' '));
        (this->*scene.open)([&](QWidget &window) { EXPECT_EQ(shown.text(u"Contents"_s), contentsOf(window)); });
    }
}

TEST_P(GuidePicture, isShownByItsPageAndFitsTheWindow)
{
    ASSERT_TRUE(library);
    QHelpEngine &engine = library->engine();
    const QString space = QHelpEngineCore::namespaceName(library->helpFile());
    const QList<QUrl> pictures = engine.files(space, QString(), u"png"_s);
    EXPECT_EQ(pictures.size(), scenes().size());
    for (const Scene &scene : scenes()) {
        const QString file = QLatin1StringView(scene.picture) + u".png"_s;
        EXPECT_TRUE(page(QLatin1StringView(scene.page)).contains(u"<img src=\"%1\""_s.arg(file))) << scene.picture;
        EXPECT_LE(picture(file).width(), 660) << scene.picture;
    }
}

TEST_P(GuidePicture, isOnThePageOfEachDialogWithHelp)
{
    ASSERT_TRUE(library);
    for (const OpenedDialog &dialog : openedDialogs) {
        if (dialog.helpPage != nullptr) {
            const QString name = QLatin1StringView(dialog.helpPage).chopped(5) + QString();
            EXPECT_TRUE(page(name).contains(u"<img src=\"window-"_s)) << dialog.name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    , GuidePicture, testing::Values("en", "ja"), [](const auto &language) { return std::string(language.param); });
