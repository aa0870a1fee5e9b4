#pragma once

#include <QString>

/// The run-time failures that a conversion or a file can raise.
enum class RunTimeError { Overflow, TypeMismatch, SubscriptOutOfRange, InputPastEnd, PrinterError };

/// The text that a user sees for the failure, e.g. "Type mismatch".
QString runTimeErrorText(RunTimeError error);
