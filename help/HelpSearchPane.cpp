#include "help/HelpSearchPane.h"

#include "help/HelpLibrary.h"
#include "help/HelpTextBox.h"

#include <QEvent>
#include <QListWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

enum LineData { PageRole = Qt::UserRole, StartRole, LengthRole, IsTitleRole };

} // namespace

HelpSearchPane::HelpSearchPane(const HelpLibrary &library)
    : m_search(library)
    , m_words(new HelpTextBox(u"helpSearchText"_s, library.label(u"searchWords"_s)))
    , m_hits(new QListWidget)
    , m_nothingFound(library.label(u"nothingFound"_s))
{
    m_hits->setObjectName(u"helpSearchHits"_s);
    m_hits->setAccessibleName(library.label(u"search"_s));
    m_hits->setWordWrap(true);
    m_hits->setSpacing(2);
    m_hits->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_hits->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_hits->setResizeMode(QListView::Adjust);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_words);
    layout->addWidget(m_hits);
    connect(m_words, &QLineEdit::textChanged, this, &HelpSearchPane::search);
    connect(m_hits, &QListWidget::itemClicked, this, &HelpSearchPane::open);
    connect(m_hits, &QListWidget::itemActivated, this, &HelpSearchPane::open);
}

void HelpSearchPane::search()
{
    m_hits->clear();
    const QStringList words = FoldedText::words(m_words->text());
    for (const HelpHit &hit : m_search.find(m_words->text())) {
        listHit(hit);
    }
    if (m_hits->count() == 0 && !words.isEmpty()) {
        new QListWidgetItem(m_nothingFound, m_hits);
        m_hits->item(0)->setFlags(Qt::NoItemFlags);
    }
    showTitlesBold();
    emit wordsChanged(words);
}

void HelpSearchPane::listHit(const HelpHit &hit)
{
    addLine(hit.title, hit.page, hit.sentences.first().span)->setData(IsTitleRole, true);
    for (const HelpSentence &sentence : hit.sentences) {
        addLine(sentence.text, hit.page, sentence.span);
    }
}

QListWidgetItem *HelpSearchPane::addLine(const QString &text, const QUrl &page, TextSpan span)
{
    auto *line = new QListWidgetItem(text, m_hits);
    line->setData(PageRole, page);
    line->setData(StartRole, span.start);
    line->setData(LengthRole, span.length);
    return line;
}

void HelpSearchPane::open(const QListWidgetItem *line)
{
    emit spanChosen(line->data(PageRole).toUrl(), {line->data(StartRole).toInt(), line->data(LengthRole).toInt()});
}

void HelpSearchPane::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        showTitlesBold();
    }
}

// An item's font is complete: it does not follow the list's font by itself.
void HelpSearchPane::showTitlesBold()
{
    QFont bold = m_hits->font();
    bold.setBold(true);
    for (int line = 0; line < m_hits->count(); ++line) {
        if (m_hits->item(line)->data(IsTitleRole).toBool()) {
            m_hits->item(line)->setFont(bold);
        }
    }
}
