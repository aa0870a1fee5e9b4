#include "editor/OpenDocument.h"

#include "app/services/Language.h"
#include "document/DocumentFile.h"
#include "document/DocumentTables.h"
#include "document/RecoveryCopy.h"
#include "grid/SpreadHistory.h"

OpenDocument::OpenDocument(int number, SpreadHistory &history, QObject *parent)
    : QObject(parent), m_number(number), m_history(history)
{
    DocFlags[number] = {};
}

void OpenDocument::prepareUntitled(int number)
{
    growDocumentTables(number);
    MachineInfo &machine = MachineInfos[number];
    machine.Capacity.clear();
    machine.ICapacity.clear();
    machine.Option.clear();
    machine.Paramater = 1; // the one row that the window shows, so that it can be saved and read back
    documentOrigin(number) = {};
}

void OpenDocument::prepareRecovered(int number, const RecoveryCopy &copy)
{
    MachineInfos[number] = copy.info;
    documentOrigin(number) = {
        .file = copy.fileName.isEmpty() ? KnownFile() : KnownFile::present(copy.fileName), .codePage = copy.codePage};
}

QString OpenDocument::pathFromName(const QString &fileName)
{
    return fileName == ResString(Text::Untitled) ? QString() : fileName;
}

QString OpenDocument::title() const
{
    return isUntitled() ? ResString(Text::Untitled) : m_path;
}

void OpenDocument::setPath(const QString &fileName)
{
    m_path = pathFromName(fileName);
    emit titleChanged(title());
}

const MachineInfo &OpenDocument::machine() const
{
    return MachineInfos.at(m_number);
}

void OpenDocument::setMachine(const MachineInfo &machine)
{
    MachineInfo &present = MachineInfos[m_number];
    if (present != machine) {
        present = machine;
        m_history.forgetClean();
    }
    markChanged();
}

void OpenDocument::setRowCount(int rows)
{
    const auto count = static_cast<qint16>(rows);
    MachineInfo &machine = MachineInfos[m_number];
    if (machine.Paramater != count) {
        machine.Paramater = count;
        emit rowCountChanged(count);
    }
}

int OpenDocument::codePage() const
{
    return documentOrigin(m_number).codePageNumber();
}

std::optional<ReadFindings> OpenDocument::findings() const
{
    return documentOrigin(m_number).findings;
}

bool OpenDocument::isChanged() const
{
    return DocFlags.at(m_number).changed;
}

void OpenDocument::setChanged(bool changed)
{
    if (isChanged() != changed) {
        DocFlags[m_number].changed = changed;
        emit changedFlagChanged(changed);
    }
}

void OpenDocument::noteLoaded()
{
    m_history.setClean();
}

void OpenDocument::noteRecovered()
{
    m_history.forgetClean();
    markChanged();
}

Result<> OpenDocument::save(const QString &fileName, const PrGrid &cells, bool mayReplace, SaveHost &host)
{
    const SaveSource source{
        .machine = MachineInfos[m_number], .grid = cells, .origin = documentOrigin(m_number), .mayReplace = mayReplace};
    auto result = saveDocument(fileName, source, host);
    if (result) {
        noteSaved();
    }
    return result;
}

void OpenDocument::noteSaved()
{
    m_history.setClean();
    setChanged(false);
    emit saved();
}

void OpenDocument::noteRestored()
{
    setChanged(!m_history.isClean());
}

void OpenDocument::release()
{
    setChanged(false);
    DocFlags[m_number].free = true;
}
