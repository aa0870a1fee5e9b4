#pragma once

#include <QString>

#include <filesystem>

/// What the system calls the file, for calls that take a path (see runtime/FileName.h). On Windows it may be longer
/// than the 260 characters that most of its calls take otherwise.
std::filesystem::path systemPath(const QString &name);

/// The name of what the system lists.
QString fileNameFromPath(const std::filesystem::path &path);

/// The full path of what the name leads to from the working folder, so that it goes on meaning that; the name itself
/// when it is a full path, or leads nowhere.
QString absoluteFileName(const QString &name);
