#include "document/RecoveryCopy.h"

#include "runtime/AnsiText.h"

#include <QCryptographicHash>

#include <cstring>
#include <limits>

namespace {

// The number after the name is that of the layout: another one is not read.
constexpr QByteArrayView mark("Tabrix recovery 1\n");
static_assert(ParameterColumn::Count == 13,
    "rows of another number of columns are another layout, with the next number after the name");
static_assert(ParameterColumn::Count < 32, "a row's changed columns are bits of one number");
constexpr qsizetype sumLength = 16;
constexpr QString MachineInfo::*infoTexts[] = {&MachineInfo::Name, &MachineInfo::TypeCode, &MachineInfo::VCapacity,
    &MachineInfo::Code, &MachineInfo::SoftWareVersion};
constexpr QStringList MachineInfo::*infoLists[] = {
    &MachineInfo::Capacity, &MachineInfo::ICapacity, &MachineInfo::Option};

QByteArray sumOf(QByteArrayView content)
{
    return QCryptographicHash::hash({content.data(), content.size()}, QCryptographicHash::Md5);
}

/// Numbers and texts one after another, after the mark and the space for their sum. Texts stay in UTF-16, since cells
/// may hold what is not valid text.
class Packer
{
public:
    explicit Packer(qsizetype capacity)
    {
        m_bytes.reserve(capacity);
        m_bytes.append(mark).append(sumLength, '\0');
    }

    void number(quint32 value) { m_bytes.append(reinterpret_cast<const char *>(&value), sizeof value); }
    void text(QStringView text)
    {
        number(quint32(text.size()));
        m_bytes.append(reinterpret_cast<const char *>(text.utf16()), text.size() * qsizetype(sizeof(char16_t)));
    }
    void texts(const QStringList &list)
    {
        number(quint32(list.size()));
        for (const QString &entry : list) {
            text(entry);
        }
    }
    QByteArray finished()
    {
        const QByteArray sum = sumOf(QByteArrayView(m_bytes).sliced(mark.size() + sumLength));
        return m_bytes.replace(mark.size(), sumLength, sum);
    }

private:
    QByteArray m_bytes;
};

/// Reads what a Packer wrote; after the first thing that is not there everything is empty.
class Unpacker
{
public:
    explicit Unpacker(QByteArrayView bytes) : m_rest(bytes) { }

    quint32 number()
    {
        quint32 value = 0;
        if (const char *bytes = take(sizeof value)) {
            std::memcpy(&value, bytes, sizeof value);
        }
        return value;
    }
    QString text()
    {
        const qsizetype length = number();
        QString text;
        if (const char *bytes = take(length * qsizetype(sizeof(char16_t)))) {
            text.resize(length);
            std::memcpy(text.data(), bytes, size_t(length) * sizeof(char16_t));
        }
        return text;
    }
    QStringList texts()
    {
        QStringList list;
        for (quint32 count = number(); count > 0 && !m_failed; --count) {
            list << text();
        }
        return list;
    }
    bool failed() const { return m_failed; }
    bool isAtEnd() const { return m_rest.isEmpty(); }

private:
    const char *take(qsizetype length)
    {
        m_failed = m_failed || length > m_rest.size();
        if (m_failed) {
            return nullptr;
        }
        const char *taken = m_rest.data();
        m_rest = m_rest.sliced(length);
        return taken;
    }

    QByteArrayView m_rest;
    bool m_failed = false;
};

void packRow(Packer &out, const RecoveryGrid &grid, int row)
{
    quint32 changed = 0;
    for (int column = 1; column <= ParameterColumn::Count; ++column) {
        out.text(grid.cellText(column, row));
        changed |= quint32(grid.isCellChanged(column, row)) << column;
    }
    out.number(changed);
}

RecoveredRow unpackRow(Unpacker &in)
{
    RecoveredRow row;
    row.texts.reserve(ParameterColumn::Count);
    for (int column = 1; column <= ParameterColumn::Count; ++column) {
        row.texts << in.text();
    }
    row.changedColumns = in.number();
    return row;
}

RecoveryCopy unpackContent(Unpacker &in)
{
    RecoveryCopy copy;
    in.text(); // see packRecoveryCopy()
    copy.fileName = in.text();
    for (const auto field : infoTexts) {
        copy.info.*field = in.text();
    }
    for (const auto field : infoLists) {
        copy.info.*field = in.texts();
    }
    for (quint32 count = in.number(); count > 0 && !in.failed(); --count) {
        copy.rows << unpackRow(in);
    }
    copy.codePage = in.isAtEnd() ? ansiCodePageNumber() : int(in.number());
    return copy;
}

} // namespace

QByteArray packRecoveryCopy(const RecoverySource &source)
{
    constexpr qsizetype typicalRow = 240;
    const int rows = source.grid.rowCount();
    Packer out(rows * typicalRow);
    out.text(source.fileName); // earlier versions: as it was typed, and then its full path
    out.text(source.fileName);
    for (const auto field : infoTexts) {
        out.text(source.info.*field);
    }
    for (const auto field : infoLists) {
        out.texts(source.info.*field);
    }
    out.number(quint32(rows));
    for (int row = 1; row <= rows; ++row) {
        packRow(out, source.grid, row);
    }
    out.number(quint32(source.codePage));
    return out.finished();
}

QByteArray recoverySum(const QByteArray &bytes)
{
    return bytes.mid(mark.size(), sumLength);
}

std::optional<RecoveryCopy> unpackRecoveryCopy(const QByteArray &bytes)
{
    if (!bytes.startsWith(mark) || bytes.size() < mark.size() + sumLength) {
        return std::nullopt;
    }
    const QByteArrayView content = QByteArrayView(bytes).sliced(mark.size() + sumLength);
    if (recoverySum(bytes) != sumOf(content)) {
        return std::nullopt;
    }
    Unpacker in(content);
    RecoveryCopy copy = unpackContent(in);
    if (in.failed() || !in.isAtEnd() || copy.rows.size() > std::numeric_limits<qint16>::max()) {
        return std::nullopt;
    }
    copy.info.Paramater = qint16(copy.rows.size());
    return copy;
}
