#pragma once

#include "resources/Texts.h"

#include <QStringList>

inline constexpr qint32 JapaneseBase = 5000;
inline constexpr qint32 EnglishBase = 10000;

/// JapaneseBase or EnglishBase: which string table ResString() reads. Set once at start-up.
extern qint32 LanguageBase;

/// Full path of the help file of the language, set once at start-up.
extern QString HelpFilePath;

/// The folder of the executable, where the set-up INI files and the help files are looked for.
QString programFolder();

/// Overrides programFolder() for this process; empty returns to the executable's. For tests.
void setProgramFolder(const QString &folder);

/// Chooses LanguageBase from the country code and the set-up INI file.
void SelectLanguage();

/// The base for the system's country code: JapaneseBase for 81, EnglishBase for every other.
qint32 CountryLanguageBase();

/// The base that the set-up INI file names; that of the country code when it names none.
qint32 ReadIniLanguage(const QString &iniPath);

/// The set-up INI file that belongs to a language, whether it exists or not.
QString setupIniPath(qint32 languageBase);

/// The full path of a language's help file, whether it exists or not.
QString helpFileOf(qint32 languageBase);

/// A text of the fixed table in the language chosen. pairs are taken two by two: a placeholder and its value, e.g.
/// ResString(Text::SaveChangesQuestion, {u"|1"_s, title}). Every occurrence of the placeholder is replaced without
/// regard to case, but not in the inserted value. A last placeholder without a value takes the value before.
QString ResString(Text id, const QStringList &pairs = {});

/// A caption as it is read out: without its access key, e.g. "&Type:" and "形名(&T):" without "&" and "(&T)".
QString withoutAccessKey(QString caption);

/// folder and fileName joined by the platform's separator, which is not doubled.
QString JoinPath(const QString &folder, const QString &fileName);

/// The position (from 1) of the first occurrence of searched in text at or after start (from 1); 0 when there is none
/// or start lies outside the text. An empty searched is found at start. compareMode 0 regards case, any other does not.
int InStrNoCase(const QString &text, const QString &searched, int start = 1, int compareMode = 1);
