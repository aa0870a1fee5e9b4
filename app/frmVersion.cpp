#include "app/frmVersion.h"

#include "app/services/Common.h"
#include "app/services/IniFile.h"
#include "app/services/Language.h"
#include "desktop/MemoryStatus.h"
#include "desktop/PlainCaption.h"
#include "runtime/Spaces.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureSize = 64;
constexpr int spacing = 16;

QString iniUserText(const QString &key)
{
    QString value;
    return ReadIniString(setupIniPath(LanguageBase), u"UserInfomation"_s, key, value) ? trimSpaces(value).toString()
                                                                                      : u" "_s;
}

} // namespace

qint32 memoryInKilobytes(quint64 bytes)
{
    return qint32(quint32(bytes)) / 1024;
}

frmVersion::frmVersion(QWidget *parent)
    : QDialog(parent)
    , m_picture(new QLabel(this))
    , m_lblSwName(newPlainLabel(u"lblSwName"_s, this))
    , m_lblName(newPlainLabel(u"lblName"_s, this))
    , m_lblMemory(newPlainLabel(u"lblMemory"_s, this))
    , m_cmdOK(new QPushButton(this))
{
    setObjectName(u"frmVersion"_s);
    m_picture->setPixmap(QGuiApplication::windowIcon().pixmap(pictureSize));
    m_cmdOK->setObjectName(u"cmdOK"_s);
    m_cmdOK->setDefault(true);
    auto *layout = new QGridLayout(this);
    layout->setHorizontalSpacing(spacing);
    layout->setVerticalSpacing(spacing);
    layout->addWidget(m_picture, 0, 0, 3, 1, Qt::AlignTop);
    layout->addWidget(m_lblSwName, 0, 1);
    layout->addWidget(m_lblName, 1, 1);
    layout->addWidget(m_lblMemory, 2, 1);
    layout->addWidget(m_cmdOK, 3, 0, 1, 2, Qt::AlignRight);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(m_cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    readUser();
}

void frmVersion::readUser()
{
    m_userName = iniUserText(u"UserName"_s);
    m_userCorp = iniUserText(u"UserCorp"_s);
}

void frmVersion::CaptionSet()
{
    setWindowTitle(ResString(Text::AboutTitle));
    m_lblSwName->setText(ResString(Text::FrameTitle) + "\r\n"_L1 + ResString(Text::ProgramName) + "  V2.0"_L1);
    m_lblName->setText(m_userName + u'\n' + m_userCorp);
    m_lblMemory->setText(
        ResString(Text::AboutMemory) + QString::number(memoryInKilobytes(totalPhysicalMemory())) + "KB"_L1);
    m_cmdOK->setText(ResString(Text::Ok));
    PrepareDialog(*this); // places the box by its size, so last
}
