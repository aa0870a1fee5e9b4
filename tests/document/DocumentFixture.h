#pragma once

#include "tests/document/FakeGrid.h"
#include "tests/document/FakeHost.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QTemporaryDir>

/// Documents in a folder that is gone afterwards, with empty tables, one document number, and backups of their own.
class DocumentFixture : public testing::Test
{
protected:
    DocumentFixture();
    ~DocumentFixture() override;

    QString path(const QString &name) const { return m_folder.filePath(name); }
    /// Puts a file into the folder and returns its path.
    QString put(const QByteArray &bytes, const QString &name = QStringLiteral("document.inv")) const;
    /// The content of a file; fails the test when it cannot be read.
    static QByteArray contentOf(const QString &fileName);

    /// Works in that code page from here on, with a document that comes from no file.
    static void useCodePage(int number);

    bool read(const QString &fileName);
    bool readBytes(const QByteArray &bytes) { return read(put(bytes)); }
    /// Saves what was read, as the editor does.
    bool save(const QString &fileName);
    bool save(const QString &fileName, const FakeGrid &grid);
    /// Reads bytes and saves them under another name; empty when either fails.
    QByteArray throughTheProgram(const QByteArray &bytes);

    static constexpr qint16 docNo = 1;
    FakeHost host;

private:
    QTemporaryDir m_folder;
};

/// A file with these rows after a section that says that there are paramater of them.
QByteArray fileWithRows(const QByteArray &rows, int paramater);
