#include "app/services/Language.h"

#include "app/services/IniFile.h"
#include "resources/StringTable.h"
#include "runtime/Country.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

qint32 LanguageBase = EnglishBase;
QString HelpFilePath;

namespace {

constexpr int japanCountryCode = 81;

/// What depends on the language apart from the string table.
struct LanguageFiles
{
    qint32 base;
    QLatin1StringView iniFolder; ///< below the program folder, with a leading separator
    QLatin1StringView iniFile;
    QLatin1StringView helpFile;
    QLatin1StringView iniValue; ///< what the set-up software writes for the language
};

constexpr LanguageFiles languages[] = {
    {JapaneseBase, "/files/jp"_L1, "KORVELIN.INI"_L1, "TABRIX.HLP"_L1, "Japanese"_L1},
    {EnglishBase, "/files/us"_L1, "korvelin_e.ini"_L1, "TABRIXE.HLP"_L1, "English"_L1},
};

const LanguageFiles &languageFiles(qint32 base)
{
    return languages[base == JapaneseBase ? 0 : 1];
}

QString &programFolderOverride()
{
    static QString folder;
    return folder;
}

bool isFile(const QString &path)
{
    return QFileInfo(path).isFile();
}

void replaceAll(QString &text, const QString &key, const QString &value)
{
    if (key.isEmpty()) {
        return;
    }
    for (int at = InStrNoCase(text, key); at > 0; at = InStrNoCase(text, key, at + int(value.size()))) {
        text.replace(at - 1, key.size(), value);
    }
}

} // namespace

QString programFolder()
{
    const QString &folder = programFolderOverride();
    return folder.isEmpty() ? QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) : folder;
}

void setProgramFolder(const QString &folder)
{
    programFolderOverride() = folder;
}

void SelectLanguage()
{
    LanguageBase = CountryLanguageBase();
    QString iniPath = setupIniPath(LanguageBase);
    // A Japanese system may have only the English set-up software; the opposite does not occur.
    if (LanguageBase == JapaneseBase && !isFile(iniPath)) {
        iniPath = setupIniPath(EnglishBase);
    }
    if (isFile(iniPath)) {
        LanguageBase = ReadIniLanguage(iniPath);
    }
}

qint32 CountryLanguageBase()
{
    return countryCode() == japanCountryCode ? JapaneseBase : EnglishBase;
}

qint32 ReadIniLanguage(const QString &iniPath)
{
    QString value;
    if (ReadIniString(iniPath, u"Setup"_s, u"Language"_s, value)) {
        for (const LanguageFiles &language : languages) {
            if (value == language.iniValue) {
                return language.base;
            }
        }
    }
    return CountryLanguageBase();
}

QString setupIniPath(qint32 languageBase)
{
    const LanguageFiles &files = languageFiles(languageBase);
    return JoinPath(programFolder() + QDir::toNativeSeparators(files.iniFolder), files.iniFile);
}

QString helpFileOf(qint32 languageBase)
{
    return JoinPath(programFolder(), languageFiles(languageBase).helpFile);
}

QString ResString(Text id, const QStringList &pairs)
{
    const InterfaceText *entry = interfaceText(static_cast<int>(id));
    Q_ASSERT(entry);
    if (!entry) {
        return {};
    }
    QString text = (LanguageBase == JapaneseBase ? entry->japanese : entry->english).toString();
    QString value;
    for (qsizetype i = 0; i < pairs.size(); i += 2) {
        value = pairs.value(i + 1, value);
        replaceAll(text, pairs[i], value);
    }
    return text;
}

QString withoutAccessKey(QString caption)
{
    static const QRegularExpression accessKey(u"\\(&.\\)|&"_s);
    return caption.remove(accessKey);
}

QString JoinPath(const QString &folder, const QString &fileName)
{
    const QChar separator = QDir::separator();
    return folder.endsWith(separator) ? folder + fileName : folder + separator + fileName;
}

int InStrNoCase(const QString &text, const QString &searched, int start, int compareMode)
{
    if (start < 1 || start > text.size()) {
        return 0;
    }
    const auto sensitivity = compareMode == 0 ? Qt::CaseSensitive : Qt::CaseInsensitive;
    return int(text.indexOf(searched, start - 1, sensitivity)) + 1;
}
