#pragma once

#include "document/Document.h"

#include <QByteArray>
#include <QString>

#include <optional>

class AnsiCodePage;

/// A file as it was given: its name, "-" for standard input, and its bytes.
struct InputFile
{
    QString name;
    QByteArray bytes;
    std::optional<QString> failure; ///< why it could not be read, as a sentence
};

/// Reads a file, a pipe or standard input as a whole. The null device is an empty file.
InputFile readInput(const QString &name);

/// The code page that bytes are decoded with: the one chosen, else the one that they fit; where they fit both, that of
/// the interface's language.
const AnsiCodePage &pageOfInput(const QByteArray &bytes, std::optional<int> chosen);

/// A parameter file's content as the editor would show it.
struct InputDocument
{
    Document document;
    std::optional<QString> failure; ///< why there is none, as a sentence
};

/// Decodes a parameter file. An empty one, as version control hands over for a file that is not there, gives an empty
/// document.
InputDocument decodeInput(const InputFile &input, std::optional<int> codePage);

/// The bytes that document is written as; failure has the reason, as a sentence, if it cannot be written whole.
struct OutputBytes
{
    QByteArray bytes;
    std::optional<QString> failure;
};
OutputBytes encodeOutput(const Document &document);

/// Replaces the file, or makes it: at every moment the earlier or the new content is there as a whole. Returns the
/// reason of a failure, std::nullopt if all went well. A pipe or a device is written into.
std::optional<QString> writeOutput(const QString &fileName, const QByteArray &bytes);
