#include "check/CheckTexts.h"

std::span<const CheckText> checkTexts(CheckLanguage language)
{
    return language == CheckLanguage::Japanese ? japaneseCheckTexts() : englishCheckTexts();
}

const CheckText &checkText(CheckId id, CheckLanguage language)
{
    return checkTexts(language)[std::size_t(id)];
}
