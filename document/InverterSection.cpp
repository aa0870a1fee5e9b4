#include "document/InverterSection.h"

#include "document/AnsiBuffer.h"
#include "runtime/NumberText.h"
#include "runtime/PrivateProfile.h"
#include "runtime/Spaces.h"

using namespace Qt::StringLiterals;

namespace {

/// The section's values by key: those that are there and not empty.
class SectionReader
{
public:
    explicit SectionReader(const PrivateProfile &profile) : m_profile(profile) { }

    std::optional<QString> untrimmed(const QString &key) const;
    std::optional<QString> trimmed(const QString &key) const;
    void readIfThere(const QString &key, QString &field) const;
    /// The byte that the key's value begins with; 0 without the key.
    qsizetype position(const QString &key) const { return m_profile.valueAt(u"Inverter"_s, key).value_or(0); }

private:
    const PrivateProfile &m_profile;
};

std::optional<QString> SectionReader::untrimmed(const QString &key) const
{
    return m_profile.text(u"Inverter"_s, key);
}

std::optional<QString> SectionReader::trimmed(const QString &key) const
{
    const auto value = untrimmed(key);
    return value ? std::optional(trimSpaces(*value).toString()) : std::nullopt;
}

void SectionReader::readIfThere(const QString &key, QString &field) const
{
    if (const auto value = trimmed(key)) {
        field = *value;
    }
}

QString numbered(const QString &key, qsizetype index)
{
    return key + QString::number(index);
}

/// Capacities and rated currents in pairs; the first gap ends both lists.
void readCapacities(const SectionReader &section, MachineInfo &info)
{
    info.Capacity.clear();
    info.ICapacity.clear();
    while (const auto capacity = section.trimmed(numbered(u"Capacity"_s, info.Capacity.size()))) {
        info.Capacity.append(*capacity);
        const auto current = section.trimmed(numbered(u"ICapacity"_s, info.ICapacity.size()));
        if (!current) {
            return;
        }
        info.ICapacity.append(*current);
    }
}

void readOptions(const SectionReader &section, MachineInfo &info)
{
    info.Option.clear();
    while (const auto option = section.trimmed(numbered(u"Option"_s, info.Option.size()))) {
        info.Option.append(*option);
    }
}

Result<> readParamater(const SectionReader &section, MachineInfo &info)
{
    const auto value = section.untrimmed(u"Paramater"_s);
    if (!value) {
        return {};
    }
    const auto count = toInt16(QStringView(*value));
    if (!count) {
        return Failure{
            .code = count.failure().code, .position = FilePosition{.offset = section.position(u"Paramater"_s)}};
    }
    info.Paramater = *count;
    return {};
}

/// Puts key lines into the output; nothing any more after the first failure.
class SectionWriter
{
public:
    explicit SectionWriter(AnsiBuffer &out) : m_out(out) { }

    void write(const QString &key, const QString &value);
    void writeCapacities(const MachineInfo &info);
    void writeOptions(const MachineInfo &info);
    const Result<> &outcome() const { return m_outcome; }

private:
    AnsiBuffer &m_out;
    Result<> m_outcome;
};

void SectionWriter::write(const QString &key, const QString &value)
{
    if (!m_outcome) {
        return;
    }
    m_out.putText(key);
    m_out.put('=');
    m_out.putText(value);
    m_out.put("\r\n");
    if (const auto missing = m_out.missingCharacter()) {
        m_outcome = Failure{
            .code = FailureCode::KeyCharacterMissing, .arguments = QStringList{key} + *missing, .cell = CellPosition{}};
    }
}

void SectionWriter::writeCapacities(const MachineInfo &info)
{
    for (qsizetype i = 0; i < info.Capacity.size() && m_outcome; ++i) {
        write(numbered(u"Capacity"_s, i), info.Capacity[i]);
        if (i < info.ICapacity.size()) {
            write(numbered(u"ICapacity"_s, i), info.ICapacity[i]);
        } else if (m_outcome) {
            m_outcome = FailureCode::SubscriptOutOfRange;
        }
    }
}

void SectionWriter::writeOptions(const MachineInfo &info)
{
    for (qsizetype i = 0; i < info.Option.size(); ++i) {
        write(numbered(u"Option"_s, i), info.Option[i]);
    }
}

} // namespace

Result<> ReadInverterSection(const PrivateProfile &profile, MachineInfo &info)
{
    const SectionReader section(profile);
    const auto name = section.untrimmed(u"Name"_s);
    if (!name) {
        return {};
    }
    info.Name = *name;
    info.TypeCode = section.trimmed(u"TypeCode"_s).value_or(QString());
    section.readIfThere(u"VCapacity"_s, info.VCapacity);
    section.readIfThere(u"Code"_s, info.Code);
    readCapacities(section, info);
    readOptions(section, info);
    if (auto read = readParamater(section, info); !read) {
        return read;
    }
    section.readIfThere(u"SoftWareVersion"_s, info.SoftWareVersion);
    return {};
}

Result<> WriteInverterSection(const MachineInfo &info, AnsiBuffer &out)
{
    SectionWriter section(out);
    section.write(u"Name"_s, info.Name);
    section.write(u"TypeCode"_s, info.TypeCode);
    section.write(u"VCapacity"_s, info.VCapacity);
    section.write(u"Code"_s, info.Code);
    section.writeCapacities(info);
    section.writeOptions(info);
    section.write(u"SoftWareVersion"_s, info.SoftWareVersion);
    section.write(u"Paramater"_s, QString::number(info.Paramater));
    return section.outcome();
}
