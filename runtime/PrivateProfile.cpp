#include "runtime/PrivateProfile.h"

#include "runtime/AnsiText.h"
#include "runtime/WholeFile.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView utf8Mark = "\xEF\xBB\xBF";

/// The end-of-file mark of old editors counts as a space.
bool isProfileSpace(char byte)
{
    constexpr char endOfFileMark = 0x1A;
    return byte == ' ' || byte == '\t' || byte == '\v' || byte == '\f' || byte == endOfFileMark;
}

bool isLineEnd(char byte)
{
    return byte == '\r' || byte == '\n';
}

QByteArrayView trimmed(QByteArrayView bytes)
{
    while (!bytes.isEmpty() && isProfileSpace(bytes.front())) {
        bytes = bytes.sliced(1);
    }
    while (!bytes.isEmpty() && isProfileSpace(bytes.back())) {
        bytes.chop(1);
    }
    return bytes;
}

/// Takes the next line off bytes, without its line end; any run of line ends is one.
QByteArrayView takeLine(QByteArrayView &bytes)
{
    const auto end = std::find_if(bytes.begin(), bytes.end(), isLineEnd);
    const QByteArrayView line(bytes.begin(), end);
    const auto next = std::find_if_not(end, bytes.end(), isLineEnd);
    bytes = QByteArrayView(next, bytes.end());
    return trimmed(line);
}

/// The name between the outermost brackets of a section line, lower case; nothing for any other line.
std::optional<QByteArray> sectionName(QByteArrayView line)
{
    if (!line.startsWith('[') || !line.contains(']')) {
        return std::nullopt;
    }
    return trimmed(line.first(line.lastIndexOf(']')).sliced(1)).toByteArray().toLower();
}

QByteArrayView withoutQuotes(QByteArrayView value)
{
    const bool quoted =
        value.size() > 1 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.sliced(1).chopped(1) : value;
}

QByteArrayView upToNul(QByteArrayView value)
{
    const qsizetype nul = value.indexOf('\0');
    return nul < 0 ? value : value.first(nul);
}

/// Puts the key of a line into keys unless it is there: a key's first line decides, also when it holds no value.
void addKey(QByteArrayView line, QHash<QByteArray, std::optional<QByteArrayView>> &keys)
{
    const qsizetype equals = line.indexOf('=');
    const QByteArray key = trimmed(equals < 0 ? line : line.first(equals)).toByteArray().toLower();
    if (keys.contains(key)) {
        return;
    }
    if (equals < 0) {
        keys.insert(key, std::nullopt);
    } else {
        keys.insert(key, withoutQuotes(trimmed(upToNul(line.sliced(equals + 1)))));
    }
}

/// The text of at most limit bytes; a character that would be cut in half is left out.
QString cutText(QByteArrayView bytes, qsizetype limit, const AnsiCodePage &page)
{
    QString text = page.decode(bytes.first(std::min(bytes.size(), limit + 1)));
    while (page.byteLength(text) > limit) {
        text.chop(1);
    }
    return text;
}

} // namespace

PrivateProfile::PrivateProfile(QByteArray bytes) : PrivateProfile(std::move(bytes), ansiCodePage())
{
}

PrivateProfile::PrivateProfile(QByteArray bytes, const AnsiCodePage &page) : m_bytes(std::move(bytes)), m_page(page)
{
}

PrivateProfile PrivateProfile::fromFile(const QString &fileName)
{
    return PrivateProfile(readWholeFile(fileName).valueOr({}));
}

std::optional<QString> PrivateProfile::value(const QString &section, const QString &key, int bufferSize) const
{
    const auto found = find(section, key);
    return found ? std::optional(cutText(*found, bufferSize - 1, m_page)) : std::nullopt;
}

std::optional<QString> PrivateProfile::text(const QString &section, const QString &key) const
{
    constexpr int bufferSize = 128;
    const std::optional<QString> found = value(section, key, bufferSize);
    // A file that holds this very text counts as one without the key.
    return found && !found->isEmpty() && *found != u"GetPrivateProfieReadError"_s ? found : std::nullopt;
}

std::optional<qsizetype> PrivateProfile::valueAt(const QString &section, const QString &key) const
{
    const auto found = find(section, key);
    return found ? std::optional(found->data() - m_bytes.constData()) : std::nullopt;
}

std::optional<QByteArrayView> PrivateProfile::find(const QString &section, const QString &key) const
{
    const Keys &keys = keysOf(section.toLatin1().toLower());
    return keys.value(key.toLatin1().toLower());
}

const PrivateProfile::Keys &PrivateProfile::keysOf(const QByteArray &section) const
{
    const auto known = m_sections.constFind(section);
    if (known != m_sections.cend()) {
        return *known;
    }
    QByteArrayView rest = m_bytes;
    if (rest.startsWith(utf8Mark)) {
        rest = rest.sliced(utf8Mark.size());
    }
    while (!rest.isEmpty() && sectionName(takeLine(rest)) != section) { }
    Keys keys;
    while (!rest.isEmpty()) {
        const QByteArrayView line = takeLine(rest);
        if (sectionName(line)) {
            break;
        }
        addKey(line, keys);
    }
    return *m_sections.insert(section, keys);
}
