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

/// The header or footer of a printed page: codes and literal texts. Only addCodes() interprets codes, so that a file
/// name such as "/p.inv" is printed as it is.
///
/// Codes: "/l", "/c", "/r": what follows is at the left, in the centre, at the right; "/n": a new line at the same
/// position;
/// "/p": the page number; "//": one slash. Everything else is printed as it is.
class PageText
{
public:
    PageText &addCodes(QStringView codes);
    PageText &addText(const QString &text);

    /// The lines on page pageNumber; at least one unless nothing was added. A line feed in a text becomes a space.
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
