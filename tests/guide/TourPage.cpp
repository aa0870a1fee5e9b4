#include "tests/guide/TourPage.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextDocumentFragment>

using namespace Qt::StringLiterals;

namespace {

QString sourceOf(const QString &file)
{
    QFile source(QStringLiteral(TABRIX_SOURCES "/") + file);
    return source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

/// A step of README.md with its captions and keys marked as the guide marks them.
QString marked(QString step)
{
    static const QRegularExpression caption(uR"re(\*([^*]+)\*)re"_s);
    static const QRegularExpression key(uR"re(\b((?:Ctrl|Shift)\+(?:F?\d+|[A-Z])|F\d+|Space|Enter|Escape)\b)re"_s);
    step.replace(key, uR"(<span class="key">\1</span>)"_s);
    step.replace(caption, uR"(<span class="ui">\1</span>)"_s);
    return step.replace(u" > "_s, uR"(</span><span class="ui">)"_s);
}

} // namespace

TourPage TourPage::ofGuide(const QString &language, const QString &page)
{
    return TourPage(sourceOf(u"resources/help/%1/%2"_s.arg(language, page)).split(u"<h2>"_s).mid(1));
}

TourPage TourPage::ofReadme(const QString &heading)
{
    static const QRegularExpression number(u"^\\d+\\. "_s, QRegularExpression::MultilineOption);
    const QString chapter = sourceOf(u"README.md"_s).section(u"\n## %1\n"_s.arg(heading), 1).section(u"\n\n"_s, 0, 0);
    QStringList steps = chapter.split(number).mid(1);
    for (QString &step : steps) {
        step = marked(step);
    }
    return TourPage(steps);
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
