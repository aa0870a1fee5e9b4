#include "app/services/FindingTexts.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "document/ParameterColumns.h"

CheckLanguage checkLanguage()
{
    return LanguageBase == JapaneseBase ? CheckLanguage::Japanese : CheckLanguage::English;
}

QString columnCaption(int column)
{
    return captionText(parameterColumns.at(std::size_t(column - 1)).heading);
}

QString findingText(const Finding &finding, const QString &machine)
{
    const QString caption = finding.place.column > 0 ? columnCaption(finding.place.column) : machine;
    return filledText(
        checkText(finding.id, checkLanguage()).message, QStringList{finding.name, caption} + finding.arguments);
}
