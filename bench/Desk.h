#pragma once

#include "app/MDIfrmTabrix.h"
#include "bench/DocumentGenerator.h"
#include "bench/PlainPage.h"
#include "runtime/CellRow.h"

#include <QTemporaryDir>

#include <vector>

class frmPrFile;
class SpreadGrid;

/// The running program with a generated document.
class Desk
{
public:
    explicit Desk(int rowCount, DocumentGenerator generator = DocumentGenerator(1));
    ~Desk();
    Q_DISABLE_COPY_MOVE(Desk)

    int rowCount() const { return m_rowCount; }
    frmPrFile &editor() const;
    SpreadGrid &grid() const;
    RecoveryKeeper &recovery() { return m_frame.recovery(); }
    QString fileName() const;
    /// Opens the document once more, in a window that becomes the active one.
    void openAgain();
    /// Saves the active document under its own name.
    void save();
    /// Closes the active window.
    void closeActive();
    /// The texts of the file again, in all rows.
    void restore() const;
    /// A copy of the cells' texts.
    PlainRows plainRows() const;

private:
    int m_rowCount;
    QTemporaryDir m_folder;
    std::vector<CellRow> m_texts; ///< of the file
    MDIfrmTabrix m_frame;
};
