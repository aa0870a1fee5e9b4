#include "tests/document/DocumentFixture.h"

#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "runtime/AnsiText.h"
#include "tests/support/UserPlaces.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// In memory where the system can: thousands of saves that each wait for a disk take minutes.
QString folderTemplate()
{
    const QString memory = u"/dev/shm"_s;
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + u"/tabrix-XXXXXX"_s;
}

} // namespace

DocumentFixture::DocumentFixture() : m_folder(folderTemplate())
{
    UserPlaces::setDataHome(m_folder.filePath(u"data"_s));
    setAnsiCodePageNumber(1252);
    resetDocumentTables();
    growDocumentTables(docNo);
}

DocumentFixture::~DocumentFixture()
{
    setAnsiCodePageNumber(0);
}

QString DocumentFixture::put(const QByteArray &bytes, const QString &name) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    EXPECT_EQ(file.write(bytes), bytes.size());
    return path(name);
}

QByteArray DocumentFixture::contentOf(const QString &fileName)
{
    QFile file(fileName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << fileName.toStdString();
    return file.readAll();
}

void DocumentFixture::useCodePage(int number)
{
    setAnsiCodePageNumber(number);
    documentOrigin(docNo).codePage = number;
}

bool DocumentFixture::read(const QString &fileName)
{
    return !ReadPrFile(fileName, docNo, host);
}

bool DocumentFixture::save(const QString &fileName)
{
    return save(fileName, FakeGrid(PrRecords, MachineInfos[docNo].Paramater));
}

bool DocumentFixture::save(const QString &fileName, const FakeGrid &grid)
{
    return !WritePrFile(fileName, {docNo, grid}, host);
}

QByteArray DocumentFixture::throughTheProgram(const QByteArray &bytes)
{
    if (!readBytes(bytes) || !save(path(u"saved.inv"_s))) {
        return {};
    }
    return contentOf(path(u"saved.inv"_s));
}

QByteArray fileWithRows(const QByteArray &rows, int paramater)
{
    return "[Inverter]\r\nName=XT\r\nParamater=" + QByteArray::number(paramater) + "\r\n[Paramater]\r\n" + rows;
}
