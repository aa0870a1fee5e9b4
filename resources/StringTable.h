#pragma once

#include <QStringView>

#include <span>

/// One text of the user interface in both languages. An ampersand marks the access key.
struct InterfaceText
{
    qint16 id;
    QStringView english;
    QStringView japanese;
};

/// Every text of the program, by ascending identifier.
std::span<const InterfaceText> interfaceTexts();

/// The text of identifier id; nullptr when there is none.
const InterfaceText *interfaceText(int id);
