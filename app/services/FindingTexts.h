#pragma once

#include "check/CheckTexts.h"
#include "check/Finding.h"

#include <QString>

/// The interface's language, for the texts of checks.
CheckLanguage checkLanguage();

/// The caption of a column of the parameter grid, from 1, in the interface's language.
QString columnCaption(int column);

/// The sentence that a finding is, in the interface's language. machine: what the machine information is called.
QString findingText(const Finding &finding, const QString &machine);
