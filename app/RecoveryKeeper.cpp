#include "app/RecoveryKeeper.h"

#include "app/DocumentFlows.h"
#include "app/Language.h"
#include "document/DocumentTables.h"
#include "document/RecoveryCopy.h"
#include "editor/RecoveryCells.h"
#include "editor/frmPrFile.h"
#include "platform/SpreadGrid.h"

using namespace std::chrono_literals;

namespace {

// Half of the minute that a crash may cost, since what is under way at that moment takes its time as well.
constexpr auto usualInterval = 30s;

bool hasChanges(const frmPrFile &editor)
{
    return DocFlags[editor.docNo()].changed || editor.vaspdParam().textBeingTyped();
}

QByteArray pack(const frmPrFile &editor)
{
    const RecoveryCells cells(editor.vaspdParam());
    const QString title = editor.windowTitle();
    // Without its name, an untitled document is one in the next start's language as well.
    return packRecoveryCopy({.fileName = DocumentFlows::isUntitled(title) ? QString() : title,
        .info = MachineInfos.at(editor.docNo()),
        .grid = cells});
}

} // namespace

RecoveryKeeper::RecoveryKeeper(DocumentFlows &documents) : m_documents(documents)
{
    connect(&documents, &DocumentFlows::editorCreated, this, &RecoveryKeeper::watch);
    connect(&documents, &DocumentFlows::documentSaved, this, &RecoveryKeeper::dropCopy);
    connect(&m_timer, &QTimer::timeout, this, &RecoveryKeeper::refresh);
    setInterval(usualInterval);
}

RecoveryKeeper::~RecoveryKeeper()
{
    for (const int docNo : m_copies.keys()) {
        if (!DocFlags.value(docNo).changed) {
            dropCopy(docNo);
        }
    }
}

void RecoveryKeeper::watch(frmPrFile *editor)
{
    const int docNo = editor->docNo();
    connect(editor, &frmPrFile::unloaded, this, [this, docNo] { dropCopy(docNo); });
}

void RecoveryKeeper::refresh()
{
    for (const frmPrFile *editor : m_documents.openEditors()) {
        if (hasChanges(*editor)) {
            refreshCopy(*editor);
        } else {
            dropCopy(editor->docNo());
        }
    }
}

bool RecoveryKeeper::keepForNextStart(const frmPrFile &editor)
{
    const QByteArray bytes = pack(editor);
    if (!isKept(editor.docNo(), bytes)) {
        writeCopy(editor.docNo(), bytes);
    }
    return isKept(editor.docNo(), bytes) && m_copies.remove(editor.docNo());
}

/// Whether those bytes come back from the disk.
bool RecoveryKeeper::isKept(int docNo, const QByteArray &bytes) const
{
    const auto known = m_copies.constFind(docNo);
    return known != m_copies.cend() && m_store.read(known->number) == bytes;
}

void RecoveryKeeper::refreshCopy(const frmPrFile &editor)
{
    const QByteArray bytes = pack(editor);
    const auto known = m_copies.constFind(editor.docNo());
    if (known == m_copies.cend() || known->sum != recoverySum(bytes)) {
        writeCopy(editor.docNo(), bytes);
    }
}

void RecoveryKeeper::writeCopy(int docNo, const QByteArray &bytes)
{
    const auto known = m_copies.constFind(docNo);
    const int number = known != m_copies.cend() ? known->number : m_store.newNumber();
    if (m_store.write(number, bytes)) {
        m_copies.insert(docNo, {.number = number, .sum = recoverySum(bytes)});
    }
}

void RecoveryKeeper::dropCopy(int docNo)
{
    const auto known = m_copies.find(docNo);
    if (known != m_copies.end()) {
        m_store.remove(known->number);
        m_copies.erase(known);
    }
}

void RecoveryKeeper::recover()
{
    for (const int number : m_store.takeOver()) {
        recoverCopy(number);
    }
}

void RecoveryKeeper::recoverCopy(int number)
{
    if (const auto copy = unpackRecoveryCopy(m_store.read(number))) {
        m_copies.insert(m_documents.openRecovered(*copy), {.number = number});
    } else {
        m_store.setAside(number);
    }
}
