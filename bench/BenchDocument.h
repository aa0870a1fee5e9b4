#pragma once

#include "app/services/Messages.h"
#include "bench/RecordGrid.h"
#include "document/SaveHost.h"

#include <QTemporaryDir>

#include <memory>
#include <vector>

/// Lets events run as the program does, or not at all. A message ends the measurement: none is expected.
class BenchHost : public SaveHost
{
public:
    explicit BenchHost(bool events) : m_events(events) { }

    void showMessage(const QString &text) override { qFatal("%s", qPrintable(text)); }
    void showFailure(const Failure &failure, const QString &) override
    {
        qFatal("%s", qPrintable(failureText(failure)));
    }
    bool askYesNo(const QString &question, const QString &) override { qFatal("%s", qPrintable(question)); }
    bool askToReplace(const Failure &obstacle, const QString &) override
    {
        qFatal("%s", qPrintable(failureText(obstacle)));
    }
    bool askToWrite(const QList<ReadBackFinding> &, const QString &) override { qFatal("not read back"); }
    void showCell(const CellPosition &) override { }
    void setBusy(bool) override { }
    void runPendingEvents() override;

private:
    bool m_events;
};

/// A generated document in a folder of its own, read once, with a grid that shows it. One at a time: the tables of
/// records are the program's own.
class BenchDocument
{
public:
    /// nameLength: the characters of each name at least.
    explicit BenchDocument(int rowCount, int nameLength = 0);

    int rowCount() const { return m_rowCount; }
    QString fileName() const { return m_folder.filePath(QStringLiteral("document.inv")); }
    QString savedName() const { return m_folder.filePath(QStringLiteral("saved.inv")); }
    /// For what else is written beside it: over a file that another has written, a save asks first.
    QString joinedName() const { return m_folder.filePath(QStringLiteral("joined.inv")); }
    /// The rows as a window opens them, and one more.
    std::vector<CellRow> read(bool events) const;
    void save(bool events) const;
    const RecordGrid &grid() const { return *m_grid; }
    /// Writes the cells as text, with separator between them: quoted if it is a comma.
    void writeCells(const QString &fileName, char separator) const;

private:
    int m_rowCount;
    QTemporaryDir m_folder;
    std::unique_ptr<RecordGrid> m_grid;
};

/// Where files are written that the disk's own time shall not hide: in memory where the system can.
QString benchFolderTemplate();
