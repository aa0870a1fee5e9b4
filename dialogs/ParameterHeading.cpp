#include "dialogs/ParameterHeading.h"

#include "desktop/PlainCaption.h"
#include "dialogs/EditDialog.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int valueMargin = 3;

} // namespace

ParameterHeading::ParameterHeading(QWidget *dialog, const QString &array)
    : m_pr(newPlainLabel(u"lblPr"_s, dialog))
    , m_caption(newPlainLabel(elementName(array, 0), dialog))
    , m_value(newPlainLabel(elementName(array, 1), dialog))
{
    m_value->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    m_value->setMargin(valueMargin);
    addWidget(m_pr);
    addStretch();
    addWidget(m_caption);
    addWidget(m_value);
}

void ParameterHeading::setTexts(const QString &pr, const QString &caption)
{
    m_pr->setText(pr.isEmpty() ? QString() : u"Pr."_s + pr);
    m_caption->setText(caption);
}
