#pragma once

#include <QList>
#include <QString>

/// One line of a page's header or footer.
struct PageTextLine
{
    QString left;
    QString centre;
    QString right;

    bool operator==(const PageTextLine &) const = default;
};

/// The header or footer of a print-out: codes and plain texts in turn. Only what is added as codes is searched for
/// codes, so that a file name such as "/p.inv" is printed as it is.
///
/// Codes: "/l", "/c", "/r": what follows stands at the left, in the middle, at the right; "/n": a new line, which keeps
/// that place; "/p": the page number; "//": one slash. Everything else stands for itself.
class PageText
{
public:
    PageText &addCodes(QStringView codes);
    PageText &addText(const QString &text);

    /// The lines on page pageNumber, at least one unless nothing was added. A line feed inside a text is a blank.
    QList<PageTextLine> lines(int pageNumber) const;

private:
    enum class Kind : quint8 { Text, Left, Centre, Right, NewLine, PageNumber };

    struct Part
    {
        Kind kind;
        QString text;
    };

    void addCode(QChar code);

    QList<Part> m_parts;
};
