#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

/// Files in a folder of its own.
class WholeFile : public testing::Test
{
protected:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString put(const QByteArray &content) const
    {
        QFile file(path(QStringLiteral("a.inv")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
        return file.fileName();
    }
    /// A file that says that it has so many bytes; they take no space on the disk.
    QString putSparse(qint64 size) const
    {
        QFile file(path(QStringLiteral("large.inv")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_TRUE(file.resize(size));
        return file.fileName();
    }

private:
    QTemporaryDir m_folder;
};
