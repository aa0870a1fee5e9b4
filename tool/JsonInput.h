#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <optional>

/// A JSON object that one of the tool's commands wrote, or why bytes are not that: a sentence that names the place.
struct JsonInput
{
    QJsonObject root;
    std::optional<QString> failure;
};

/// format, version: what the object's members of these names have to be.
JsonInput readJson(const QByteArray &bytes, QLatin1StringView format, int version);
