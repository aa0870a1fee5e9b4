#include "tests/guide/TourPage.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextDocumentFragment>

using namespace Qt::StringLiterals;

TourPage::TourPage(const QString &language, const QString &page)
{
    QFile file(QStringLiteral(TABRIX_SOURCES "/resources/help/%1/%2").arg(language, page));
    if (file.open(QIODevice::ReadOnly)) {
        m_sections = QString::fromUtf8(file.readAll()).split(u"<h2>"_s).mid(1);
    }
}

QStringList TourPage::named(int section) const
{
    static const QRegularExpression mark(uR"re(<span class="(?:ui|key)">([^<]+)</span>|<img src="([^"]+)")re"_s);
    QStringList names;
    for (const auto &match : mark.globalMatch(m_sections.value(section - 1))) {
        names << QTextDocumentFragment::fromHtml(match.captured(1) + match.captured(2)).toPlainText();
    }
    names.removeDuplicates();
    names.sort();
    return names;
}

QString TourPage::text(int section) const
{
    return QTextDocumentFragment::fromHtml(m_sections.value(section - 1)).toPlainText();
}
