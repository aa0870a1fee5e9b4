#pragma once

#include <QJsonObject>

class MDIfrmTabrix;

/// What the user sees of the frame and of its windows at this moment.
QJsonObject dayState(const MDIfrmTabrix &frame);
