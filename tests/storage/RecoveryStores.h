#pragma once

#include "storage/RecoveryStore.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// Recovery copies in a folder of its own.
class RecoveryStores : public testing::Test
{
protected:
    QString root() const { return m_folder.filePath(QStringLiteral("recovery")); }
    /// Every entry below the root that matches, as a path from there.
    QStringList found(const QString &pattern) const
    {
        QStringList paths = QDir(root()).entryList({pattern}, QDir::Files);
        for (const QString &folder : QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            for (const QString &name : QDir(root() + u'/' + folder).entryList({pattern}, QDir::Files)) {
                paths << folder + u'/' + name;
            }
        }
        return paths;
    }
    /// What a program that was killed leaves behind.
    void leaveBehind(const QString &folder, const QString &name, const QByteArray &bytes) const
    {
        ASSERT_TRUE(QDir().mkpath(root() + u'/' + folder));
        QFile file(root() + u'/' + folder + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    static QByteArray contentOf(const RecoveryStore &store, int number)
    {
        const auto bytes = store.read(number);
        EXPECT_TRUE(bytes);
        return bytes.valueOr({});
    }

    QTemporaryDir m_folder;
};
