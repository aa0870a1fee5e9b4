#pragma once

#include <QList>
#include <QString>

/// A part of a text: its first character, from 0, and its length.
struct TextSpan
{
    int start = 0;
    int length = 0;
};

/// A text as a search in the guide compares it: upper and lower case, half and full width are the same. It knows which
/// part of the original text each of its characters comes from: a half-width letter and its voicing mark, for instance,
/// are folded to one character.
class FoldedText
{
public:
    explicit FoldedText(const QString &text);

    const QString &folded() const { return m_folded; }
    /// The words that a user typed, separated by spaces, folded.
    static QStringList words(const QString &typed);
    /// The parts of the text that are that word (folded), alone or within other words, in their order.
    QList<TextSpan> spansOf(const QString &word) const;

private:
    QString m_folded;
    QList<TextSpan> m_origins; // of each folded character
};
