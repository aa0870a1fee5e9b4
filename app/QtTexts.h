#pragma once

/// Loads Qt's own texts (file, font and print dialogs, help window) in the language of LanguageBase, instead of those
/// that were loaded before. English needs none; where Qt's translations are not installed, these dialogs stay English
/// but for the texts that they lack.
void loadQtTexts();
