#include "tool/JsonInput.h"

#include "tool/ToolTexts.h"

#include <QJsonDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

JsonInput readJson(const QByteArray &bytes, QLatin1StringView format, int version)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        const QByteArray before = bytes.first(std::min<qsizetype>(error.offset, bytes.size()));
        const auto line = before.count('\n') + 1;
        // Qt names the byte after the one that it cannot take.
        const auto column = QString::fromUtf8(before.sliced(before.lastIndexOf('\n') + 1)).size();
        return {{},
            toolText(ToolText::JsonError,
                {QString::number(line), QString::number(std::max<qsizetype>(column, 1)), error.errorString()})};
    }
    const QJsonObject root = document.object();
    if (root.value("format"_L1).toString() != format || root.value("version"_L1).toInt() != version) {
        return {{}, toolText(ToolText::JsonFormat, {format, QString::number(version)})};
    }
    return {root, {}};
}
