#pragma once

#include <QStringList>
#include <QWidget>

#include <stdexcept>

/// The control of that object name inside root; throws, with the names that are there, when it is missing.
template <typename Control>
Control &control(const QObject &root, const QString &name)
{
    if (auto *found = root.findChild<Control *>(name)) {
        return *found;
    }
    QStringList names;
    for (const auto *child : root.findChildren<Control *>()) {
        names << child->objectName();
    }
    throw std::runtime_error("no control " + name.toStdString() + " among " + names.join(u' ').toStdString());
}
