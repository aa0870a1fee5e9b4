#pragma once

#include "document/FileHost.h"
#include "document/ReadBackCheck.h"

/// What a save needs of the desktop beyond that.
class SaveHost : public FileHost
{
public:
    /// Whether to replace the file in spite of obstacle (FileChanged, FileAppeared or VersionNotKept), with that title.
    /// Enter and Escape mean No.
    virtual bool askToReplace(const Failure &obstacle, const QString &title) = 0;
    /// Whether to write what would not be read back as it is, with that title; findings has one entry at least. Enter
    /// and Escape mean No.
    virtual bool askToWrite(const QList<ReadBackFinding> &findings, const QString &title) = 0;
    /// Leads the user to the cell that a message or question was about.
    virtual void showCell(const CellPosition &cell) = 0;
};
