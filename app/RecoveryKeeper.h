#pragma once

#include "runtime/Result.h"
#include "storage/RecoveryStore.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

class DocumentFlows;
class frmPrFile;

/// Keeps a recovery copy of every document with changes, so that a crash costs no more than what was done since the
/// last copy. A copy goes when its document is saved or given up, and a start opens what the dead left behind. The
/// user notices nothing of it: no message, no pointer, no event; and while nothing is done, nothing is looked at.
class RecoveryKeeper : public QObject
{
    Q_OBJECT

public:
    explicit RecoveryKeeper(DocumentFlows &documents);
    /// Documents that are unchanged by now need no copy any more.
    ~RecoveryKeeper() override;

    /// How long after a change the documents are looked at. A first copy is made then; one that is there is replaced
    /// when it is older than two of these times, so that it is never further behind than three.
    void setInterval(std::chrono::milliseconds interval) { m_timer.setInterval(interval); }
    std::chrono::milliseconds interval() const { return m_timer.intervalAsDuration(); }
    /// Whether the documents are going to be looked at.
    bool isWaiting() const { return m_timer.isActive(); }

    /// Opens the documents of programs that have died. Their copies stay until these are saved or given up. Fails
    /// with what the user has to know: that not all of them can be read now.
    Result<> recover();

    /// Brings the copies up to date now.
    void refresh();
    /// Brings the copy of one document up to date now. True when the copy on the disk is the document as it stands.
    bool keep(const frmPrFile &editor);
    /// Keeps the document as it is now, beyond the end of its window, for the next start. False when that is not
    /// possible.
    bool keepForNextStart(const frmPrFile &editor);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Copy
    {
        int number; ///< in the store
        QByteArray sum = {}; ///< of what was last written; empty for what another start wrote
        QElapsedTimer age = {}; ///< since it was last compared with the document
    };

    void watch(frmPrFile *editor);
    void noteAct();
    void lookAtDocuments();
    bool isDue(int docNo) const;
    bool refreshCopy(const frmPrFile &editor);
    Result<> recoverCopy(int number);
    void dropCopy(int docNo);

    DocumentFlows &m_documents;
    RecoveryStore m_store;
    QHash<int, Copy> m_copies; ///< by document number
    QTimer m_timer{this}; ///< runs from an act of the user's until the documents were looked at
};
