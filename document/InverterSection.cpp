#include "document/InverterSection.h"

#include "document/AnsiBuffer.h"
#include "runtime/BlankText.h"
#include "runtime/NumberText.h"
#include "runtime/PrivateProfile.h"

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
    return value ? std::optional(trimBlanks(*value).toString()) : std::nullopt;
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

std::optional<FileFailure> readParamater(const SectionReader &section, MachineInfo &info)
{
    const auto value = section.untrimmed(u"Paramater"_s);
    if (!value) {
        return std::nullopt;
    }
    const auto converted = toInt16(QStringView(*value));
    if (const auto *error = std::get_if<RunTimeError>(&converted)) {
        auto failure = FileFailure::of(*error);
        failure.position = {.offset = section.position(u"Paramater"_s)};
        return failure;
    }
    info.Paramater = std::get<qint16>(converted);
    return std::nullopt;
}

/// Puts key lines into the output until one fails.
class SectionWriter
{
public:
    explicit SectionWriter(AnsiBuffer &out) : m_out(out) { }

    bool write(const QString &key, const QString &value);
    bool writeCapacities(const MachineInfo &info);
    bool writeOptions(const MachineInfo &info);
    std::optional<FileFailure> failure() const { return m_failure; }

private:
    AnsiBuffer &m_out;
    std::optional<FileFailure> m_failure;
};

bool SectionWriter::write(const QString &key, const QString &value)
{
    m_out.putText(key);
    m_out.put('=');
    m_out.putText(value);
    m_out.put("\r\n");
    if (const auto missing = m_out.missingCharacter()) {
        m_failure = FileFailure{OwnText::KeyCharacterMissing, QStringList{key} + *missing, CellPlace{}};
    }
    return !m_failure;
}

bool SectionWriter::writeCapacities(const MachineInfo &info)
{
    for (qsizetype i = 0; i < info.Capacity.size(); ++i) {
        if (!write(numbered(u"Capacity"_s, i), info.Capacity[i])) {
            return false;
        }
        if (i == info.ICapacity.size()) {
            m_failure = FileFailure::of(RunTimeError::SubscriptOutOfRange);
            return false;
        }
        if (!write(numbered(u"ICapacity"_s, i), info.ICapacity[i])) {
            return false;
        }
    }
    return true;
}

bool SectionWriter::writeOptions(const MachineInfo &info)
{
    for (qsizetype i = 0; i < info.Option.size(); ++i) {
        if (!write(numbered(u"Option"_s, i), info.Option[i])) {
            return false;
        }
    }
    return true;
}

} // namespace

std::optional<FileFailure> ReadInverterSection(const PrivateProfile &profile, MachineInfo &info)
{
    const SectionReader section(profile);
    const auto name = section.untrimmed(u"Name"_s);
    if (!name) {
        return std::nullopt;
    }
    info.Name = *name;
    info.TypeCode = section.trimmed(u"TypeCode"_s).value_or(QString());
    section.readIfThere(u"VCapacity"_s, info.VCapacity);
    section.readIfThere(u"Code"_s, info.Code);
    readCapacities(section, info);
    readOptions(section, info);
    if (auto failure = readParamater(section, info)) {
        return failure;
    }
    section.readIfThere(u"SoftWareVersion"_s, info.SoftWareVersion);
    return std::nullopt;
}

std::optional<FileFailure> WriteInverterSection(const MachineInfo &info, AnsiBuffer &out)
{
    SectionWriter section(out);
    const bool written = section.write(u"Name"_s, info.Name) && section.write(u"TypeCode"_s, info.TypeCode)
        && section.write(u"VCapacity"_s, info.VCapacity) && section.write(u"Code"_s, info.Code)
        && section.writeCapacities(info) && section.writeOptions(info)
        && section.write(u"SoftWareVersion"_s, info.SoftWareVersion)
        && section.write(u"Paramater"_s, QString::number(info.Paramater));
    return written ? std::nullopt : section.failure();
}
