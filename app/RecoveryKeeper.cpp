#include "app/RecoveryKeeper.h"

#include "app/DocumentFlows.h"
#include "app/services/Language.h"
#include "document/DocumentTables.h"
#include "document/RecoveryCopy.h"
#include "editor/OpenDocument.h"
#include "editor/RecoveryCells.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>

using namespace std::chrono_literals;

namespace {

// The first copy exists ten seconds after the first change, and no copy lacks more than thirty seconds: two seconds and
// six are left for what is just being done at such a moment.
constexpr auto defaultInterval = 8s;
constexpr int copyLifetime = 2; // intervals

bool hasChanges(const frmPrFile &editor)
{
    return editor.document().isChanged() || editor.vaspdParam().textBeingTyped();
}

QByteArray pack(const frmPrFile &editor)
{
    const RecoveryCells cells(editor.vaspdParam());
    const OpenDocument &document = editor.document();
    return packRecoveryCopy(
        {.fileName = document.path(), .info = document.machine(), .grid = cells, .codePage = document.codePage()});
}

} // namespace

RecoveryKeeper::RecoveryKeeper(DocumentFlows &documents) : m_documents(documents)
{
    connect(&documents, &DocumentFlows::editorCreated, this, &RecoveryKeeper::watch);
    connect(&m_timer, &QTimer::timeout, this, &RecoveryKeeper::lookAtDocuments);
    m_timer.setSingleShot(true);
    setInterval(defaultInterval);
    QCoreApplication::instance()->installEventFilter(this);
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
    const int docNo = editor->document().number();
    connect(&editor->vaspdParam(), &SpreadGrid::cellsEdited, this, &RecoveryKeeper::noteAction);
    connect(&editor->document(), &OpenDocument::saved, this, [this, docNo] { dropCopy(docNo); });
    connect(editor, &frmPrFile::unloaded, this, [this, docNo] { dropCopy(docNo); });
}

// Every change by the user, in a cell, a dialog or a text that is still being typed, begins with one of these.
bool RecoveryKeeper::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonRelease:
    case QEvent::Drop:
        noteAction();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void RecoveryKeeper::noteAction()
{
    if (!m_timer.isActive()) {
        m_timer.start();
    }
}

void RecoveryKeeper::lookAtDocuments()
{
    for (const frmPrFile *editor : m_documents.openEditors()) {
        if (!hasChanges(*editor)) {
            dropCopy(editor->document().number());
        } else if (!isDue(editor->document().number()) || !refreshCopy(*editor)) {
            noteAction(); // to look again
        }
    }
}

bool RecoveryKeeper::isDue(int docNo) const
{
    const auto known = m_copies.find(docNo);
    return known == m_copies.end() || known->age.elapsed() >= (copyLifetime * interval()).count();
}

void RecoveryKeeper::refresh()
{
    for (const frmPrFile *editor : m_documents.openEditors()) {
        if (hasChanges(*editor)) {
            refreshCopy(*editor);
        } else {
            dropCopy(editor->document().number());
        }
    }
}

bool RecoveryKeeper::keepForNextStart(const frmPrFile &editor)
{
    return keep(editor) && m_copies.remove(editor.document().number());
}

bool RecoveryKeeper::keep(const frmPrFile &editor)
{
    const auto known = m_copies.find(editor.document().number());
    if (known != m_copies.end() && !m_store.has(known->number)) {
        known->sum.clear();
    }
    return refreshCopy(editor);
}

bool RecoveryKeeper::refreshCopy(const frmPrFile &editor)
{
    const QByteArray bytes = pack(editor);
    const QByteArray sum = recoverySum(bytes);
    if (!m_copies.contains(editor.document().number())) {
        m_copies.insert(editor.document().number(), {.number = m_store.newNumber()});
    }
    Copy &copy = m_copies[editor.document().number()];
    copy.age.start();
    if (copy.sum == sum) {
        return true;
    }
    const bool written = m_store.write(copy.number, bytes);
    copy.sum = written ? sum : QByteArray();
    return written;
}

void RecoveryKeeper::dropCopy(int docNo)
{
    const auto known = m_copies.find(docNo);
    if (known != m_copies.end()) {
        m_store.remove(known->number);
        m_copies.erase(known);
    }
}

Result<> RecoveryKeeper::recover()
{
    const QList<int> numbers = m_store.takeOver();
    Result<> recovered = m_store.lastTakeOver();
    for (const int number : numbers) {
        const auto copy = recoverCopy(number);
        recovered = recovered ? copy : recovered;
    }
    if (recovered) {
        return recovered;
    }
    return Failure{.code = FailureCode::CopiesNotRead,
        .arguments = {QDir::toNativeSeparators(m_store.root()), recovered.failure().reason()}};
}

Result<> RecoveryKeeper::recoverCopy(int number)
{
    const auto bytes = m_store.read(number);
    if (!bytes) {
        return bytes.failure(); // it may be intact: the next start tries again
    }
    if (const auto copy = unpackRecoveryCopy(*bytes)) {
        const int docNo = m_documents.openRecovered(*copy);
        m_copies.insert(docNo, {.number = number});
        m_copies[docNo].age.start();
    } else {
        m_store.setAside(number);
    }
    return {};
}
