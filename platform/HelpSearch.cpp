#include "platform/HelpSearch.h"

#include "platform/HelpLibrary.h"

#include <QTextDocument>

#include <algorithm>

namespace {

QString comparable(const QString &text)
{
    return text.normalized(QString::NormalizationForm_KC).toCaseFolded();
}

// 0 when one of the words is missing.
int occurrences(const QString &text, const QStringList &words)
{
    int sum = 0;
    for (const QString &word : words) {
        const auto count = static_cast<int>(text.count(word));
        if (count == 0) {
            return 0;
        }
        sum += count;
    }
    return sum;
}

} // namespace

QList<HelpHit> HelpSearch::find(const QString &text)
{
    readPages();
    const QStringList words = comparable(text).split(u' ', Qt::SkipEmptyParts);
    QList<HelpHit> hits;
    for (const Page &page : m_pages) {
        if (const int count = occurrences(page.text, words)) {
            hits.append({page.title, page.address, count});
        }
    }
    std::ranges::stable_sort(hits, std::ranges::greater(), &HelpHit::count);
    return hits;
}

// Only once somebody searches: most users of a help page do not.
void HelpSearch::readPages()
{
    if (!m_pages.isEmpty()) {
        return;
    }
    for (const QUrl &address : m_library.pages()) {
        QTextDocument document;
        document.setHtml(QString::fromUtf8(m_library.data(address)));
        const QString title = document.metaInformation(QTextDocument::DocumentTitle);
        m_pages.append({title, address, comparable(document.toPlainText())});
    }
}
