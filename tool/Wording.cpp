#include "tool/Wording.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "document/ParameterColumns.h"
#include "tool/SheetFields.h"
#include "tool/ToolTexts.h"

using namespace Qt::StringLiterals;

const CheckText &checkTextOf(CheckId id)
{
    return checkText(id, isJapanese() ? CheckLanguage::Japanese : CheckLanguage::English);
}

QString severityCaption(Severity severity)
{
    constexpr ToolText captions[] = {ToolText::SeverityNote, ToolText::SeverityWarning, ToolText::SeverityError};
    return toolText(captions[std::size_t(severity)]);
}

QString columnCaption(int column)
{
    return captionText(parameterColumns.at(std::size_t(column - 1)).heading);
}

QString messageOf(const Finding &finding)
{
    const QString caption =
        finding.place.column > 0 ? columnCaption(finding.place.column) : toolText(ToolText::MachineInformation);
    return filledText(checkTextOf(finding.id).message, QStringList{finding.name, caption} + finding.arguments);
}

QString explanationOf(CheckId id)
{
    const CheckInfo &info = checkInfo(id);
    const CheckText &text = checkTextOf(id);
    return toolText(ToolText::Explanation,
        {info.name, severityCaption(info.severity), text.explanation.toString(), text.example.toString(),
            text.remedy.toString()});
}

QString fieldNameOf(const Finding &finding)
{
    return finding.place.column > 0 ? QString(fieldNameOfColumn(finding.place.column)) : finding.name;
}
