#include "tool/Wording.h"

#include "app/services/FindingTexts.h"
#include "tool/SheetFields.h"
#include "tool/ToolTexts.h"

using namespace Qt::StringLiterals;

const CheckText &checkTextOf(CheckId id)
{
    return checkText(id, checkLanguage());
}

QString severityCaption(Severity severity)
{
    constexpr ToolText captions[] = {ToolText::SeverityNote, ToolText::SeverityWarning, ToolText::SeverityError};
    return toolText(captions[std::size_t(severity)]);
}

QString messageOf(const Finding &finding)
{
    return findingText(finding, toolText(ToolText::MachineInformation));
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
