#include "print/PrintAbortBox.h"

#include "desktop/PlainCaption.h"
#include "desktop/ScreenFit.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

PrintAbortBox::PrintAbortBox(const QString &text, const QString &cancelText, const QFont &font, QWidget *owner)
    : QDialog(owner), m_progress(new QProgressBar)
{
    setObjectName(u"frmPrintAbort"_s);
    setFont(font);
    setModal(true);
    m_progress->setObjectName(u"prgPrint"_s);
    m_progress->setFormat(u"%v / %m"_s);
    m_progress->setAlignment(Qt::AlignCenter);

    QLabel *label = newPlainLabel(u"lblAbort"_s, this);
    label->setText(text);
    label->setWordWrap(true);
    const int margins = fontMetrics().averageCharWidth() * 5;
    label->setMinimumWidth(std::min(fontMetrics().averageCharWidth() * 45, maxSizeOnScreen(*this).width() - margins));
    auto *cancel = new QPushButton(cancelText);
    cancel->setObjectName(u"cmdCancel"_s);
    cancel->setMinimumWidth(fontMetrics().horizontalAdvance(cancelText + u"0000"_s));
    connect(cancel, &QPushButton::clicked, this, &PrintAbortBox::reject);

    auto *layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(label);
    layout->addWidget(m_progress);
    layout->addWidget(cancel, 0, Qt::AlignHCenter);
}

void PrintAbortBox::setProgress(int pagesDone, int pages)
{
    m_progress->setRange(0, pages);
    m_progress->setValue(pagesDone);
    QCoreApplication::processEvents();
}

void PrintAbortBox::reject()
{
    m_cancelled = true;
    QDialog::reject();
}
