#pragma once

#include "tool/Files.h"
#include "tool/Session.h"

#include <functional>
#include <future>
#include <utility>

/// What working on one file came to.
struct FileResult
{
    QByteArray output; ///< for standard output
    QStringList messages = {}; ///< for standard error
    int status = Fine;
    std::function<void()> inTurn = {}; ///< called when it is this file's turn, by the thread that waits for them
};

using FileWork = std::function<FileResult(const InputFile &input)>;

/// Reads the files and works on them side by side; what they came to is written in their order, with separator between
/// two outputs. A file that cannot be read is named and does not stop the others. Returns the highest status.
int workOnFiles(const QStringList &names, const FileWork &work, Session &session, QByteArrayView separator = {});

/// What two calls give that are made at the same time.
template <typename First, typename Second>
auto sideBySide(const First &first, const Second &second)
{
    auto other = std::async(std::launch::async, second);
    auto result = first();
    return std::pair(std::move(result), other.get());
}
