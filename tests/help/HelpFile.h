#pragma once

#include <QString>

/// The help file of the program as it was built, in English ("en") or Japanese ("ja").
inline QString helpFile(const QString &language)
{
    const bool isJapanese = language == QLatin1StringView("ja");
    return QStringLiteral(TABRIX_HELP_FOLDER "/")
        + (isJapanese ? QStringLiteral("TABRIX.HLP") : QStringLiteral("TABRIXE.HLP"));
}
