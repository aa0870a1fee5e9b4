#pragma once

#include "tests/support/FrameTest.h"

#include <functional>

/// The windows of which the guide has pictures, as it shows them: in a small font, with an example. The parameter is
/// the guide's language, "en" or "ja".
class GuideScenes : public FrameTest, public testing::WithParamInterface<const char *>
{
protected:
    using Look = std::function<void(QWidget &window)>;
    struct Scene
    {
        const char *page; ///< the page that has the picture, without ".html"
        const char *picture; ///< the picture's file, without ".png"
        void (GuideScenes::*open)(const Look &look);
    };

    static const QList<Scene> &scenes();

    GuideScenes();
    ~GuideScenes() override;

    static QString language() { return QString::fromLatin1(GetParam()); }

private:
    static bool isJapanese() { return language() == QLatin1StringView("ja"); }
    void openEditor();
    void openFrame(const Look &look);
    void openGrid(const Look &look);
    void openHelp(const Look &look);
    template <auto open>
    void openDialog(const Look &look);
    void openAbout(const Look &look);
    void openPrinting(const Look &look);

    QPalette m_formerPalette;
};
