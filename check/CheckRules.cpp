#include "check/CheckRules.h"

#include "runtime/FileName.h"
#include "runtime/SystemPath.h"
#include "runtime/WholeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QSettings>
#include <QStringDecoder>
#include <QTemporaryFile>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

constexpr auto severityKey = "severity"_L1;
constexpr auto reasonKey = "reason"_L1;
constexpr auto offValue = "off"_L1;

/// Takes one rules file apart.
class RulesReader
{
public:
    RulesReader(const QString &fileName, CheckRules &rules) : m_fileName(fileName), m_rules(rules) { }

    Result<> read(const QByteArray &bytes);

private:
    Result<> checkEntries(const QByteArray &bytes, const QStringList &sections) const;
    Result<> readSection(QSettings &settings, const QString &section);
    Failure failure(FailureCode code, const QStringList &arguments = {}) const
    {
        return {.code = code, .arguments = QStringList{shownFileName(m_fileName)} + arguments};
    }

    QString m_fileName;
    CheckRules &m_rules;
};

bool isUtf8(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    return !decoder.hasError();
}

/// A text with a comma comes as a list unless it is in quotation marks.
QString textOf(const QSettings &settings, QLatin1StringView key)
{
    return settings.value(QString(key)).toStringList().join(", "_L1).trimmed();
}

Result<> RulesReader::read(const QByteArray &bytes)
{
    QTemporaryFile copy; // QSettings takes a name, and not every name
    if (!copy.open() || copy.write(bytes) != bytes.size() || !copy.flush()) {
        return failure(FailureCode::RulesNotRead, {copy.errorString()});
    }
    QSettings settings(copy.fileName(), QSettings::IniFormat);
    settings.allKeys(); // which takes the sections apart
    if (settings.status() != QSettings::NoError || !isUtf8(bytes)) {
        return failure(FailureCode::RulesNotIni);
    }
    if (const QStringList keys = settings.childKeys(); !keys.isEmpty()) {
        return failure(FailureCode::RulesUnknownKey, {keys.first()});
    }
    if (auto checked = checkEntries(bytes, settings.childGroups()); !checked) {
        return checked;
    }
    for (const QString &section : settings.childGroups()) {
        if (auto taken = readSection(settings, section); !taken) {
            return taken;
        }
    }
    return {};
}

/// QSettings takes the last of two entries of the same name, and leaves out empty sections.
Result<> RulesReader::checkEntries(const QByteArray &bytes, const QStringList &sections) const
{
    QSet<QString> seen;
    QString section;
    for (const QString &line : QString::fromUtf8(bytes).split(u'\n')) {
        if (const QString content = line.trimmed(); content.isEmpty() || content.startsWith(u';')) {
            continue;
        }
        QString entry = line.section(u'=', 0, 0).trimmed();
        if (entry.startsWith(u'[')) {
            section = entry;
        } else if (section.isEmpty() || entry.isEmpty()) {
            return failure(FailureCode::RulesNotIni);
        } else {
            entry = section + u' ' + entry;
        }
        if (seen.contains(entry)) {
            return failure(FailureCode::RulesTwice, {entry});
        }
        seen.insert(entry);
        if (const QString name = section.sliced(1).chopped(1).trimmed(); !sections.contains(name)) {
            return failure(FailureCode::RulesUnknownId, {name});
        }
    }
    return {};
}

Result<> RulesReader::readSection(QSettings &settings, const QString &section)
{
    const auto id = checkNamed(section);
    if (!id) {
        return failure(FailureCode::RulesUnknownId, {section});
    }
    settings.beginGroup(section);
    for (const QString &key : settings.allKeys()) {
        if (key != severityKey && key != reasonKey) {
            return failure(FailureCode::RulesUnknownKey, {key});
        }
    }
    const QString severity = textOf(settings, severityKey);
    const QString reason = textOf(settings, reasonKey);
    settings.endGroup();
    const auto known = severityNamed(severity);
    if (!known && severity != offValue) {
        return failure(FailureCode::RulesUnknownSeverity, {section, severity});
    }
    if (reason.isEmpty()) {
        return failure(FailureCode::RulesWithoutReason, {section});
    }
    m_rules.add(*id, {known, reason, m_fileName});
    return {};
}

/// Reads the rules file of that folder, if there is one.
Result<> readFolder(const QString &folder, CheckRules &rules)
{
    constexpr qint64 largest = 1024 * 1024;
    const QString fileName = (folder.endsWith(u'/') ? folder : folder + u'/') + rulesFileName;
    const auto bytes = readWholeFile(fileName, largest);
    if (bytes) {
        constexpr QByteArrayView mark = "\xEF\xBB\xBF"; // as some editors begin a text in UTF-8
        return RulesReader(fileName, rules).read(bytes->startsWith(mark) ? bytes->sliced(mark.size()) : *bytes);
    }
    const int error = bytes.failure().systemError;
    if (error == ENOENT || error == ENOTDIR) {
        return {};
    }
    return Failure{.code = FailureCode::RulesNotRead,
        .arguments = {shownFileName(fileName), bytes.failure().reason()},
        .systemError = error};
}

/// The full path, also of a file that is not there.
QString fullPath(const QString &fileName)
{
    const QString path = absoluteFileName(fileName);
    return QDir::isAbsolutePath(path) ? path : QDir::cleanPath(absoluteFileName(u"."_s) + u'/' + path);
}

} // namespace

std::optional<Severity> CheckRules::severityOf(CheckId id) const
{
    const CheckRule *rule = ruleOf(id);
    return rule != nullptr ? rule->severity : std::optional(checkInfo(id).severity);
}

const CheckRule *CheckRules::ruleOf(CheckId id) const
{
    const auto &rule = m_rules.at(std::size_t(id));
    return rule ? &*rule : nullptr;
}

void CheckRules::add(CheckId id, const CheckRule &rule)
{
    auto &present = m_rules.at(std::size_t(id));
    if (!present) {
        present = rule;
    }
}

Result<CheckRules> rulesFor(const QString &fileName)
{
    CheckRules rules;
    if (fileName.isEmpty()) {
        return rules;
    }
    QString path = fullPath(fileName);
    for (QString folder = QFileInfo(path).path(); folder != path; folder = QFileInfo(folder).path()) {
        if (const auto read = readFolder(folder, rules); !read) {
            return read.failure();
        }
        path = folder;
    }
    return rules;
}
