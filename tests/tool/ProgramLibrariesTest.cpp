#include <gtest/gtest.h>

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

TEST(ProgramLibraries, ofTheToolHaveNoWindows)
{
    const auto libraries = [](const QString &program) {
        QProcess process;
        process.start(u"ldd"_s, {program});
        EXPECT_TRUE(process.waitForFinished(-1));
        return process.readAllStandardOutput();
    };
    const QByteArray ofTool = libraries(QStringLiteral(TABRIX_TOOL));
    EXPECT_TRUE(ofTool.contains("libQt6Core"));
    EXPECT_EQ(ofTool.count("libQt6"), ofTool.count("libQt6Core")) << ofTool.constData();
    EXPECT_FALSE(ofTool.contains("libxlsxwriter")); // with which a start takes half as long again
    EXPECT_TRUE(libraries(QStringLiteral(TABRIX_PRINT)).contains("libQt6Widgets"));
}

} // namespace
