#pragma once

#include "resources/OwnTexts.h"
#include "runtime/Failure.h"

#include <QStringList>

/// text with the arguments in place of %1, %2 ...: they are shown as they are, whatever is in them. A placeholder
/// without an argument stays.
QString filledText(QStringView text, const QStringList &arguments);

/// The program's own text in the language chosen (LanguageBase); arguments fill %1, %2 ... and are shown as they are,
/// whatever they contain. A placeholder without an argument stays.
QString ownText(OwnText id, const QStringList &arguments = {});

/// The caption in the language chosen.
QString captionText(const Caption &caption);

/// What the user is told of the failure, e.g. "Type mismatch", or asked about one that he may agree to; empty if it is
/// a silent one.
QString failureText(const Failure &failure);
