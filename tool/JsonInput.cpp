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
        const auto *end = bytes.begin() + std::min<qsizetype>(error.offset, bytes.size());
        const auto line = std::count(bytes.begin(), end, '\n') + 1;
        return {{}, toolText(ToolText::JsonError, {QString::number(line), error.errorString()})};
    }
    const QJsonObject root = document.object();
    if (root.value("format"_L1).toString() != format || root.value("version"_L1).toInt() != version) {
        return {{}, toolText(ToolText::JsonFormat, {format, QString::number(version)})};
    }
    return {root, {}};
}
