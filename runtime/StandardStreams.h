#pragma once

/// Lets the standard streams take and give bytes as they are, a console show UTF-8, and a write tell of a reader that
/// has gone. To be called first in main.
void prepareStandardStreams();
