#pragma once

#include "document/MachineInfo.h"
#include "document/ReadFindings.h"
#include "runtime/Result.h"

#include <QObject>
#include <QString>

#include <optional>

class PrGrid;
class SaveHost;
class SpreadHistory;
struct RecoveryCopy;

/// A document that is open in an editor window: all that belongs to it but its rows, which are in the window's grid.
/// It is the way to the tables that are indexed by the document number, and apart from WritePrFile() nothing else
/// writes the changed flag there.
///
/// A user types into a cell: the window calls markChanged(), changedFlagChanged(true) makes the icon show it, and the
/// next look at the document finds it worth a recovery copy. Ctrl+S: noteSaved() clears the flag and makes the present
/// texts the clean ones, so that undo leads away from them and redo back to them, with the flag.
class OpenDocument : public QObject
{
    Q_OBJECT

public:
    /// The unchanged document of that number, which counts from 1 and which the tables must hold; without a path.
    /// history: of the grid that holds its rows.
    OpenDocument(int number, SpreadHistory &history, QObject *parent);

    /// Makes the tables hold an untitled document of one row under that number.
    static void prepareUntitled(int number);
    /// Makes the tables hold the document of a recovery copy under that number.
    static void prepareRecovered(int number, const RecoveryCopy &copy);

    int number() const { return m_number; }

    /// The file as it was named on opening or saving it; empty while there is none.
    const QString &path() const { return m_path; }
    bool isUntitled() const { return m_path.isEmpty(); }
    void setPath(const QString &fileName);
    /// The path, or what an untitled document is called.
    QString title() const;
    /// What a document of that file name has for a path: nothing if the name is what untitled documents are called.
    static QString pathFromName(const QString &fileName);

    const MachineInfo &machine() const;
    /// The user has edited the machine information. No undo leads back to the former one, and so none to the file.
    void setMachine(const MachineInfo &machine);
    int rowCount() const { return machine().Paramater; }
    /// A command has changed the number of rows in the grid, or undo has.
    void setRowCount(int rows);
    /// The number of the code page that the document was read in and is written in.
    int codePage() const;
    /// What reading its file found out; std::nullopt if it comes from no file, or has been saved.
    std::optional<ReadFindings> findings() const;

    bool isChanged() const;
    void markChanged() { setChanged(true); }
    /// The grid has been laid out or filled with what the file holds.
    void noteLoaded();
    /// The grid has been filled with what a crashed instance left, which is in no file.
    void noteRecovered();
    /// Saves the document, whose rows are in cells, as saveDocument() does. The path stays as it is.
    Result<> save(const QString &fileName, const PrGrid &cells, bool mayReplace, SaveHost &host);
    /// Everything is in the file now.
    void noteSaved();
    /// Undo or redo has changed the grid: the document is unchanged if it is back at the texts of the file.
    void noteRestored();
    /// The window is closed: the number is free for another document.
    void release();

signals:
    void titleChanged(const QString &title);
    void rowCountChanged(int rows);
    void changedFlagChanged(bool changed);
    void saved();

private:
    void setChanged(bool changed);

    int m_number;
    SpreadHistory &m_history;
    QString m_path;
};
