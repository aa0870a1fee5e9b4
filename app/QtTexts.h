#pragma once

/// Loads Qt's own texts (file, font and print dialogs, help window) in the language of LanguageBase. English needs
/// none; where Qt's translations are not installed, these dialogs stay English.
void loadQtTexts();
