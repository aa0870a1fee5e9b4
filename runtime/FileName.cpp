#include "runtime/FileName.h"

#include <QDir>
#include <QFile>
#include <QStringDecoder>
#include <QUrl>

#include <algorithm>

namespace {

constexpr char32_t privateCharacters = 0x10FE00; ///< plus the byte, which is 80 at least
constexpr char16_t firstUnit = QChar::highSurrogate(privateCharacters + 0x80);
constexpr char16_t lowest = QChar::lowSurrogate(privateCharacters + 0x80);
constexpr char16_t highest = QChar::lowSurrogate(privateCharacters + 0xFF);

bool isByteAt(QStringView name, qsizetype at)
{
    return at + 1 < name.size() && name[at] == firstUnit && name[at + 1] >= lowest && name[at + 1] <= highest;
}

/// How many bytes the character at the beginning takes, going by its first one.
qsizetype claimedLength(QByteArrayView bytes)
{
    const auto first = static_cast<uchar>(bytes.front());
    const qsizetype length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    return std::min(length, bytes.size());
}

/// The character at the beginning; empty if there is none, or if it is one of those that represent bytes.
QString characterOf(QByteArrayView bytes)
{
    QStringDecoder utf8(
        QStringDecoder::Utf8, QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString character = utf8.decode(bytes);
    return utf8.hasError() || isByteAt(character, 0) ? QString() : character;
}

} // namespace

QString fileNameFromBytes(QByteArrayView bytes)
{
    QString name;
    while (!bytes.isEmpty()) {
        const qsizetype length = claimedLength(bytes);
        const QString character = characterOf(bytes.first(length));
        if (character.isEmpty()) {
            name += QChar::fromUcs4(privateCharacters + static_cast<uchar>(bytes.front()));
            bytes = bytes.sliced(1);
        } else {
            name += character;
            bytes = bytes.sliced(length);
        }
    }
    return name;
}

QByteArray fileNameBytes(const QString &name)
{
    QByteArray bytes;
    qsizetype begin = 0;
    for (qsizetype at = 0; at < name.size(); ++at) {
        if (isByteAt(name, at)) {
            bytes += QFile::encodeName(name.sliced(begin, at - begin));
            bytes += static_cast<char>(name[at + 1].unicode() - lowest + 0x80);
            begin = at + 2;
            ++at;
        }
    }
    return bytes + QFile::encodeName(name.sliced(begin));
}

QString fileNameFromQt(const QString &name)
{
#ifdef Q_OS_WIN
    return QDir::toNativeSeparators(name);
#else
    return fileNameFromBytes(QFile::encodeName(name));
#endif
}

QString fileNameFromUrl(const QUrl &url)
{
#ifdef Q_OS_WIN
    return QDir::toNativeSeparators(url.toLocalFile());
#else
    return fileNameFromBytes(QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()));
#endif
}

QString fileNameKey(const QString &fullName)
{
#ifdef Q_OS_WIN
    return fullName.toLower();
#else
    return fullName;
#endif
}

QString shownFileName(const QString &name)
{
    QString shown;
    for (qsizetype at = 0; at < name.size(); ++at) {
        const bool isByte = isByteAt(name, at);
        shown += isByte ? QChar(QChar::ReplacementCharacter) : name[at];
        at += isByte ? 1 : 0;
    }
    return shown;
}
