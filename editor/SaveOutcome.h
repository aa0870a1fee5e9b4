#pragma once

/// How an attempt to save a document ended.
enum class SaveOutcome {
    Saved,
    Failed, ///< or the user gave no file name; told by then
    Declined, ///< the user answered No to a question about what would be lost
};
