#pragma once

#include "document/RecoveryStore.h"

#include <QHash>
#include <QObject>
#include <QTimer>

#include <chrono>

class DocumentFlows;
class frmPrFile;

/// Keeps a recovery copy of every document with changes, so that a crash costs no more than what was done since the
/// last copy. A copy goes when its document is saved or given up, and a start opens what the dead left behind. The
/// user notices nothing of it: no message, no pointer, no event.
class RecoveryKeeper : public QObject
{
    Q_OBJECT

public:
    explicit RecoveryKeeper(DocumentFlows &documents);
    /// Documents that are unchanged by now need no copy any more.
    ~RecoveryKeeper() override;

    /// How often the documents are looked at: the most work that a crash can cost.
    void setInterval(std::chrono::milliseconds interval) { m_timer.start(interval); }
    std::chrono::milliseconds interval() const { return m_timer.intervalAsDuration(); }

    /// Opens the documents of programs that have died. Their copies stay until these are saved or given up.
    void recover();

    /// Brings the copies up to date now.
    void refresh();

    /// Keeps the document as it is now, beyond the end of its window, for the next start. False when that is not
    /// possible.
    bool keepForNextStart(const frmPrFile &editor);

private:
    struct Copy
    {
        int number; ///< in the store
        QByteArray sum = {}; ///< of what was last written; empty for what another start wrote
    };

    void watch(frmPrFile *editor);
    void refreshCopy(const frmPrFile &editor);
    void writeCopy(int docNo, const QByteArray &bytes);
    bool isKept(int docNo, const QByteArray &bytes) const;
    void recoverCopy(int number);
    void dropCopy(int docNo);

    DocumentFlows &m_documents;
    RecoveryStore m_store;
    QHash<int, Copy> m_copies; ///< by document number
    QTimer m_timer;
};
