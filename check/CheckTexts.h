#pragma once

#include "check/CheckIds.h"

#include <QStringView>

#include <span>

/// What is said about a check in one language.
struct CheckText
{
    CheckId id;
    /// One finding, as a whole sentence. %1: the parameter's number or the key of the machine information; %2: the
    /// column's caption; %3, %4 ...: the finding's arguments.
    QStringView message;
    QStringView explanation; ///< why it matters
    QStringView example; ///< a piece of a file or a value that has it
    QStringView remedy; ///< what to do
};

/// Whether there is a text for every check, in the order of CheckId.
constexpr bool isComplete(std::span<const CheckText> texts)
{
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (std::size_t(texts[i].id) != i) {
            return false;
        }
    }
    return texts.size() == checkCount;
}

enum class CheckLanguage { English, Japanese };

/// The text of a check.
const CheckText &checkText(CheckId id, CheckLanguage language);

/// Every text of the language, in the order of CheckId.
std::span<const CheckText> checkTexts(CheckLanguage language);

/// The two tables.
std::span<const CheckText> englishCheckTexts();
std::span<const CheckText> japaneseCheckTexts();
