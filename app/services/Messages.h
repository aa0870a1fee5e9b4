#pragma once

#include "resources/OwnTexts.h"
#include "runtime/RunTimeError.h"

#include <QStringList>

struct FileFailure;

/// The program's own text in the language chosen (LanguageBase); arguments fill %1, %2 ... and are shown as they are,
/// whatever stands in them. A placeholder without an argument stays.
QString ownText(OwnText id, const QStringList &arguments = {});

/// The text that a user sees for the failure, e.g. "Type mismatch".
QString runTimeErrorText(RunTimeError error);

/// What the user is told of the failure; empty when it is a silent one.
QString failureText(const FileFailure &failure);
