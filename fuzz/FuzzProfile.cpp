// Any bytes as an INI file, looked up by the index and by a plain walk over the lines.

#include "fuzz/Law.h"
#include "runtime/AnsiText.h"
#include "runtime/PrivateProfile.h"

#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView blanks = " \t\v\f\x1A";

QByteArray trimmed(QByteArray bytes)
{
    while (!bytes.isEmpty() && blanks.contains(bytes.front())) {
        bytes.remove(0, 1);
    }
    while (!bytes.isEmpty() && blanks.contains(bytes.back())) {
        bytes.chop(1);
    }
    return bytes;
}

QList<QByteArray> linesOf(QByteArray bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF")) {
        bytes.remove(0, 3);
    }
    QList<QByteArray> lines;
    for (const QByteArray &line : bytes.replace('\r', '\n').split('\n')) {
        if (!line.isEmpty()) {
            lines << trimmed(line);
        }
    }
    return lines;
}

bool isSection(const QByteArray &line)
{
    return line.startsWith('[') && line.contains(']');
}

QByteArray sectionOf(const QByteArray &line)
{
    return trimmed(line.mid(1, line.lastIndexOf(']') - 1)).toLower();
}

std::optional<QByteArray> valueOf(const QByteArray &line)
{
    const qsizetype equals = line.indexOf('=');
    if (equals < 0) {
        return std::nullopt;
    }
    QByteArray value = line.mid(equals + 1);
    if (value.contains('\0')) {
        value.truncate(value.indexOf('\0'));
    }
    value = trimmed(value);
    const bool quoted = value.size() > 1
        && ((value.startsWith('"') && value.endsWith('"')) || (value.startsWith('\'') && value.endsWith('\'')));
    return quoted ? value.mid(1, value.size() - 2) : value;
}

/// The bytes that a look-up finds, before they are cut to the buffer.
std::optional<QByteArray> found(const QList<QByteArray> &lines, const QByteArray &section, const QByteArray &key)
{
    auto line = std::ranges::find_if(lines,
        [&section](const QByteArray &candidate) { return isSection(candidate) && sectionOf(candidate) == section; });
    while (line != lines.end() && ++line != lines.end() && !isSection(*line)) {
        if (trimmed(line->split('=').first()).toLower() == key) {
            return valueOf(*line);
        }
    }
    return std::nullopt;
}

void lookUp(const PrivateProfile &profile, const QList<QByteArray> &lines, const QByteArray &section,
    const QByteArray &key, int bufferSize)
{
    const auto expected = found(lines, section.toLower(), key.toLower());
    const auto value = profile.value(QString::fromLatin1(section), QString::fromLatin1(key), bufferSize);
    require(value.has_value() == expected.has_value(), "a key is there when a line of its section has it");
    if (!value) {
        return;
    }
    const AnsiCodePage &page = ansiCodePage();
    require(page.byteLength(*value) < bufferSize, "a value fits its buffer");
    require(page.decode(*expected).startsWith(*value), "a value is the line's, or its beginning");
    require(expected->size() >= bufferSize || *value == page.decode(*expected), "a value that fits comes whole");
    require(page.byteLength(*value) + 2 >= std::min<qsizetype>(bufferSize - 1, expected->size()),
        "a value loses half a character at most");
}

/// Up to the first line feed, which is passed.
QByteArray takeWord(QByteArray &bytes)
{
    const qsizetype end = bytes.indexOf('\n');
    const QByteArray word = end < 0 ? bytes : bytes.left(end);
    bytes.remove(0, end < 0 ? bytes.size() : end + 1);
    return word;
}

} // namespace

// The input: a section name and a key, one per line, then the file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    setAnsiCodePageNumber(size % 2 != 0 ? 932 : 1252);
    const QByteArray section = takeWord(bytes);
    const QByteArray key = takeWord(bytes);
    const PrivateProfile profile(bytes);
    const QList<QByteArray> lines = linesOf(bytes);
    for (const int bufferSize : {128, 2}) {
        lookUp(profile, lines, section, key, bufferSize);
        lookUp(profile, lines, "Inverter", key, bufferSize);
        lookUp(profile, lines, section, "Name", bufferSize);
    }
    require(profile.text(u"Inverter"_s, u"Name"_s) != QString(), "no value is found empty");
    return 0;
}
