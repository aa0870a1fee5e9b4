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

/// Keeps a recovery copy of every changed document, so that a crash loses no more than what was done since the last
/// copy. A copy is removed when its document is saved or given up, and a start opens what crashed instances left. The
/// user notices nothing of it: no message, no busy cursor, no event; and while the user does nothing, no document is
/// looked at.
class RecoveryKeeper : public QObject
{
    Q_OBJECT

public:
    explicit RecoveryKeeper(DocumentFlows &documents);
    /// Removes the copies of unchanged documents.
    ~RecoveryKeeper() override;

    /// How long after a change the documents are looked at. A first copy is made then; an existing one is replaced if
    /// it is older than two intervals, so that it never lacks more than three.
    void setInterval(std::chrono::milliseconds interval) { m_timer.setInterval(interval); }
    std::chrono::milliseconds interval() const { return m_timer.intervalAsDuration(); }
    /// Whether the documents are going to be looked at.
    bool isWaiting() const { return m_timer.isActive(); }

    /// Opens the documents of crashed instances. Their copies stay until the documents are saved or given up. Fails
    /// with what the user has to know if not all of them can be read now.
    Result<> recover();

    /// Brings the copies up to date now.
    void refresh();
    /// Brings the copy of one document up to date now. True if the copy on the disk is the present document.
    bool keep(const frmPrFile &editor);
    /// Keeps the document as it is now for the next start, after its window has closed. False if that is impossible.
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
    void noteAction();
    void lookAtDocuments();
    bool isDue(int docNo) const;
    bool refreshCopy(const frmPrFile &editor);
    Result<> recoverCopy(int number);
    void dropCopy(int docNo);

    DocumentFlows &m_documents;
    RecoveryStore m_store;
    QHash<int, Copy> m_copies; ///< by document number
    QTimer m_timer{this}; ///< runs from an action of the user until the documents have been looked at
};
