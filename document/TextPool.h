#pragma once

#include <QString>

#include <array>

/// Lets equal short texts ("-1", "0.1", units) share their storage: a parameter table repeats a few of them in every
/// row. Holds the texts seen last; a text that has been replaced by another is simply stored anew.
class TextPool
{
public:
    QString share(QStringView text) { return shared(text); }
    QString share(QLatin1StringView text) { return shared(text); }

private:
    static constexpr size_t slotCount = 512;
    static constexpr qsizetype longestShared = 8;

    static QString asString(QStringView text) { return text.toString(); }
    static QString asString(QLatin1StringView text) { return QString(text); }
    static char16_t unit(QChar character) { return character.unicode(); }
    static char16_t unit(char latin1) { return static_cast<uchar>(latin1); }
    template <typename View>
    QString shared(View text);

    std::array<QString, slotCount> m_texts;
};

template <typename View>
QString TextPool::shared(View text)
{
    if (text.isEmpty()) {
        return {};
    }
    if (text.size() > longestShared) {
        return asString(text);
    }
    size_t hash = 0;
    for (const auto character : text) {
        hash = hash * 31 + unit(character);
    }
    QString &known = m_texts[hash % slotCount];
    if (known != text) {
        known = asString(text);
    }
    return known;
}
