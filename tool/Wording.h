#pragma once

#include "check/CheckTexts.h"
#include "check/Finding.h"

#include <QString>

/// The sentence that a finding is, in the interface's language.
QString messageOf(const Finding &finding);

/// "Note", "Warning" or "Error", in the interface's language.
QString severityCaption(Severity severity);

/// The texts of a check in the interface's language.
const CheckText &checkTextOf(CheckId id);

/// Everything that is documented about a check, in the interface's language.
QString explanationOf(CheckId id);

/// The field that the finding is about, as JSON names it; empty for a row or a file as a whole.
QString fieldNameOf(const Finding &finding);
