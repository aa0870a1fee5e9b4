#include "tests/support/WidgetTestRun.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

int runWidgetTests(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", home.filePath(QStringLiteral("data")).toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toLocal8Bit());
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tabrix"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.filePath(QStringLiteral("config")));
    return RUN_ALL_TESTS();
}
