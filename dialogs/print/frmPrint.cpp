#include "dialogs/print/frmPrint.h"

#include "app/services/Common.h"
#include "app/services/Language.h"
#include "dialogs/PromptButton.h"
#include "dialogs/print/PrintSettings.h"
#include "grid/SpreadGrid.h"
#include "print/CurrentPrinter.h"
#include "print/PdfFile.h"
#include "runtime/NumberText.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int PageOption = 3;

template <typename Created, typename Control, size_t Count>
void createArray(std::array<Control *, Count> &controls, const QString &name)
{
    for (size_t i = 0; i < Count; ++i) {
        controls[i] = new Created;
        controls[i]->setObjectName(elementName(name, int(i)));
    }
}

template <typename Control>
void createOne(Control *&target, const QString &name)
{
    target = new Control;
    target->setObjectName(name);
}

/// A page number that the settings cannot hold becomes the nearest one that they can.
qint16 pageNumber(const QString &text)
{
    using Limits = std::numeric_limits<qint16>;
    return qint16(std::clamp(std::nearbyint(leadingNumber(text)), double(Limits::min()), double(Limits::max())));
}

} // namespace

frmPrint::frmPrint(const QString &caption, QWidget *parent) : EditDialog(parent), m_caption(caption)
{
    createControls();
    layOut(createContents(), Resizing::Fixed, {m_setup});
    setTexts();
    connectControls();
}

void frmPrint::createControls()
{
    createOne(m_printerCaption, u"Label2"_s);
    createOne(m_printerName, u"lblPrinter"_s);
    createArray<PromptCheckBox>(m_print, u"chkPrint"_s);
    createOne(m_range, u"Frame1"_s);
    createArray<PromptRadioButton>(m_options, u"optPrint"_s);
    createArray<QLineEdit>(m_pages, u"txtPage"_s);
    createArray<QLabel>(m_pageLabels, u"lblPage"_s);
    createOne(m_setup, u"cmdSet"_s);
    m_printerName->setTextFormat(Qt::PlainText);
    m_printerName->setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Sunken));
    for (QCheckBox *box : m_print) {
        box->setChecked(true);
    }
    m_options[0]->setChecked(true);
}

void frmPrint::setTexts()
{
    m_printerCaption->setText(ResString(Text::PrintPrinter));
    m_print[0]->setText(ResString(Text::PrintMachineInfo));
    m_print[1]->setText(ResString(Text::PrintParameters));
    m_range->setTitle(ResString(Text::PrintRange));
    for (size_t i = 0; i < m_options.size(); ++i) {
        m_options[i]->setText(ResString(textAfter(Text::PrintAll, i)));
    }
    m_pageLabels[0]->setText(ResString(Text::PrintFirstPage));
    m_pageLabels[1]->setText(ResString(Text::PrintLastPage));
    m_setup->setText(ResString(Text::PrintSetup));
    m_pages[0]->setAccessibleName(ResString(Text::PrintFirstPage));
    m_pages[1]->setAccessibleName(ResString(Text::PrintLastPage));
}

QLayout *frmPrint::createContents()
{
    auto *printerRow = new QHBoxLayout;
    printerRow->addWidget(m_printerCaption);
    printerRow->addWidget(m_printerName, 1);

    auto *contents = new QVBoxLayout;
    contents->addLayout(printerRow);
    contents->addWidget(m_print[0]);
    contents->addWidget(m_print[1]);
    contents->addWidget(createRangeFrame());
    contents->addStretch();
    return contents;
}

QGroupBox *frmPrint::createRangeFrame()
{
    auto *pageRow = new QHBoxLayout;
    for (size_t i = 0; i < m_pages.size(); ++i) {
        pageRow->addWidget(m_pages[i]);
        pageRow->addWidget(m_pageLabels[i]); // "1 ﾍﾟｰｼﾞから 3 ﾍﾟｰｼﾞまで": the label follows its number
    }
    pageRow->addStretch();
    auto *layout = new QVBoxLayout(m_range);
    for (QRadioButton *option : m_options) {
        layout->addWidget(option);
    }
    layout->addLayout(pageRow);
    return m_range;
}

void frmPrint::connectControls()
{
    connect(m_print[1], &QCheckBox::toggled, this, &frmPrint::enableRange);
    for (QRadioButton *option : m_options) {
        connect(option, &QRadioButton::toggled, this, &frmPrint::enablePages);
    }
    connect(m_setup, &QPushButton::clicked, this, &frmPrint::setUpPrinter);
}

void frmPrint::PrintShow(SpreadGrid &grid, bool &result)
{
    grid.commitEdit();
    m_hasSelection = grid.isBlockSelected();
    m_printerName->setText(CurrentPrinter::deviceName());
    setWidths(QFontMetrics(userFont()));
    enableRange();
    m_print[0]->setFocus();
    prepare(m_caption);
    result = exec() == Accepted;
}

/// Wide enough for a page number.
void frmPrint::setWidths(const QFontMetrics &metrics)
{
    for (QLineEdit *page : m_pages) {
        page->setFixedWidth(metrics.horizontalAdvance(u"00000000"_s));
    }
}

void frmPrint::enableRange()
{
    const bool enabled = m_print[1]->isChecked();
    for (QRadioButton *option : m_options) {
        option->setEnabled(enabled);
    }
    m_options[1]->setEnabled(enabled && m_hasSelection);
    enablePages();
}

void frmPrint::enablePages()
{
    for (QLineEdit *page : m_pages) {
        page->setEnabled(m_print[1]->isChecked() && m_options[PageOption]->isChecked());
    }
}

void frmPrint::setUpPrinter()
{
    CurrentPrinter::showSetup(this, withoutAccessKey(ResString(Text::PrintSetup)), ResString(Text::Ok),
        ResString(Text::Cancel), pdfFileName(m_caption));
    m_printerName->setText(CurrentPrinter::deviceName());
}

void frmPrint::accept()
{
    storeChoice();
    const auto &flags = SharedPrintSettings.flags;
    done(flags[0] == 1 || flags[1] == 1 ? Accepted : Rejected);
}

void frmPrint::storeChoice()
{
    PrintSettings &settings = SharedPrintSettings;
    for (size_t i = 0; i < m_print.size(); ++i) {
        settings.flags[i] = m_print[i]->isChecked() ? 1 : 0;
    }
    if (settings.flags[1] != 1) {
        return;
    }
    settings.type = qint16(chosenOption());
    if (settings.type == PageOption) {
        settings.pageFrom = pageNumber(m_pages[0]->text());
        settings.pageTo = pageNumber(m_pages[1]->text());
    }
}

int frmPrint::chosenOption() const
{
    const auto isChosen = [](const QRadioButton *option) { return option->isChecked(); };
    return int(std::ranges::find_if(m_options, isChosen) - m_options.begin());
}
