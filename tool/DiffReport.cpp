#include "tool/DiffReport.h"

#include "tool/EntryTexts.h"
#include "tool/ToolTexts.h"

using namespace Qt::StringLiterals;

namespace {

/// The lines of one entry in the report for a terminal.
QString textOf(const SheetPartInfo &part, const EntryChange &change, const Painter &paint)
{
    const auto line = [&paint](TextStyle style, const QString &text) { return paint(style, printable(text)) + u'\n'; };
    const QString entry = partCaption(part.part) + u' ' + keyText(change.key);
    if (change.kind != EntryChange::Kind::Kept) {
        const bool isAdded = change.kind == EntryChange::Kind::Added;
        const QString values = shownValues(part, change);
        return line(isAdded ? TextStyle::Green : TextStyle::Red,
            (isAdded ? u"+ "_s : u"- "_s) + (values.isEmpty() ? entry : entry + u": "_s + values));
    }
    QString text = change.isMoved ? line(TextStyle::Yellow, u"~ "_s + entry + u": "_s + movedText(change)) : QString();
    for (const ValueChange &value : change.changes) {
        text += line(TextStyle::Cyan,
            u"! "_s + entry + u", "_s + fieldCaption(part, value.field, change.key) + u": \""_s
                + shownValue(part, value.field, value.before) + u"\" -> \""_s
                + shownValue(part, value.field, value.after) + u'"');
    }
    return text;
}

QString cell(const QString &text, const QString &kind = {})
{
    const QString attribute = kind.isEmpty() ? QString() : u" class=\""_s + kind + u'"';
    return u"<td"_s + attribute + u'>' + text.toHtmlEscaped() + u"</td>"_s;
}

QString tableRow(const QString &entry, const QString &field, const QString &before, const QString &after)
{
    return u"<tr>"_s + cell(entry) + cell(field) + cell(before, u"before"_s) + cell(after, u"after"_s) + u"</tr>\n"_s;
}

QString htmlOf(const SheetPartInfo &part, const EntryChange &change)
{
    const QString entry = partCaption(part.part) + u' ' + keyText(change.key);
    if (change.kind == EntryChange::Kind::Added) {
        return tableRow(entry, toolText(ToolText::DiffAdded), {}, shownValues(part, change));
    }
    if (change.kind == EntryChange::Kind::Removed) {
        return tableRow(entry, toolText(ToolText::DiffRemoved), shownValues(part, change), {});
    }
    QString rows = change.isMoved ? tableRow(entry, movedText(change), {}, {}) : QString();
    for (const ValueChange &value : change.changes) {
        rows += tableRow(entry, fieldCaption(part, value.field, change.key),
            shownValue(part, value.field, value.before), shownValue(part, value.field, value.after));
    }
    return rows;
}

constexpr auto pageStart = R"(<!DOCTYPE html>
<html lang="%1">
<head>
<meta charset="utf-8">
<title>%2</title>
<style>
body { font-family: sans-serif; margin: 2em; color: #111; background: #fff; }
table { border-collapse: collapse; width: 100%; }
th, td { border: 1px solid #999; padding: 0.25em 0.5em; text-align: left; vertical-align: top; overflow-wrap: anywhere; }
th { background: #eee; }
.before { background: #fdecec; }
.after { background: #eaf7ea; }
thead { display: table-header-group; }
tr { break-inside: avoid; }
@media print { body { margin: 0; font-size: 9pt; } }
</style>
</head>
<body>
<h1>%2</h1>
)";

QString tableHead()
{
    QString head = u"<table>\n<thead><tr>"_s;
    for (const QString &caption :
        {toolText(ToolText::DiffPlace), QString(), toolText(ToolText::DiffBefore), toolText(ToolText::DiffAfter)}) {
        head += u"<th>"_s + caption.toHtmlEscaped() + u"</th>"_s;
    }
    return head + u"</tr></thead>\n<tbody>\n"_s;
}

} // namespace

QByteArray diffAsText(const SheetDiff &diff, const DiffNames &names, const Painter &paint)
{
    if (diff.isEmpty()) {
        return {};
    }
    QString text = paint(TextStyle::Bold, u"--- "_s + printable(names.before)) + u'\n'
        + paint(TextStyle::Bold, u"+++ "_s + printable(names.after)) + u'\n';
    for (const SheetPartInfo &part : sheetParts()) {
        for (const EntryChange &change : diff.parts.at(std::size_t(part.part))) {
            text += textOf(part, change, paint);
        }
    }
    return text.toUtf8();
}

QByteArray diffAsHtml(const SheetDiff &diff, const DiffNames &names)
{
    const QString title = toolText(ToolText::DiffTitle, {names.before, names.after}).toHtmlEscaped();
    QString page = QString::fromLatin1(pageStart);
    page.replace(u"%1"_s, isJapanese() ? u"ja"_s : u"en"_s).replace(u"%2"_s, title);
    if (diff.isEmpty()) {
        page += u"<p>"_s + toolText(ToolText::DiffNothing).toHtmlEscaped() + u"</p>\n"_s;
    } else {
        page += u"<p>"_s + countsText(countsOf(diff)).toHtmlEscaped() + u"</p>\n"_s + tableHead();
        for (const SheetPartInfo &part : sheetParts()) {
            for (const EntryChange &change : diff.parts.at(std::size_t(part.part))) {
                page += htmlOf(part, change);
            }
        }
        page += u"</tbody>\n</table>\n"_s;
    }
    return (page + u"</body>\n</html>\n"_s).toUtf8();
}
