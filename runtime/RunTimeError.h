#pragma once

/// The run-time failures that a conversion or a file can raise.
enum class RunTimeError { Overflow, TypeMismatch, SubscriptOutOfRange, InputPastEnd, PrinterError };
