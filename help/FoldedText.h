#pragma once

#include <QList>
#include <QString>

/// A stretch of a text: where it begins, from 0, and how many characters it has.
struct TextSpan
{
    int start = 0;
    int length = 0;
};

/// A text as a search in the guide sees it: upper and lower case, half and full width are the same. It knows where in
/// the text itself each of its characters stands: folded, a half-width letter and its voicing mark are one character.
class FoldedText
{
public:
    explicit FoldedText(const QString &text);

    const QString &folded() const { return m_folded; }
    /// The words that a user typed, which stand between blanks, folded.
    static QStringList words(const QString &typed);
    /// Where the text has that word (folded), also as a part of others, in its order.
    QList<TextSpan> spansOf(const QString &word) const;

private:
    QString m_folded;
    QList<TextSpan> m_origins; // of each folded character
};
