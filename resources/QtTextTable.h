#pragma once

#include <QString>
#include <QTranslator>

#include <span>

/// A text of Qt's own that its Japanese catalogue lacks.
struct QtTextEntry
{
    const char *context; ///< the class that shows it, mostly
    const char *english;
    const char16_t *japanese;
};

std::span<const QtTextEntry> qtTextEntries();

/// Translates the texts of the table.
class QtTextTable : public QTranslator
{
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    /// Empty for a text that is not in the table.
    QString translate(
        const char *context, const char *english, const char *disambiguation = nullptr, int count = -1) const override;
};
