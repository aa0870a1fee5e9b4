#pragma once

#include <QString>

/// When output is coloured.
enum class ColorUse { Auto, Always, Never };

/// How a piece of text is made to stand out on a terminal.
enum class TextStyle {
    Bold,
    Dim,
    Red,
    Green,
    Yellow,
    Cyan,
};

/// Whether the process's standard output, or its standard error, is a terminal that obeys more than plain text.
bool isOutputTerminal();
bool isErrorTerminal();

/// Whether text for standard output is to be coloured: as told, else where a terminal, or git's pager, shows it and the
/// user has not set NO_COLOR.
bool isOutputColored(ColorUse use);

/// Text in colours, or as it is. Line ends and other control characters in pieces become spaces, since they would move
/// the terminal's cursor.
class Painter
{
public:
    explicit Painter(bool isColored) : m_isColored(isColored) { }

    QString operator()(TextStyle style, const QString &text) const;

private:
    bool m_isColored;
};

/// The text in one line, without characters that would move the terminal's cursor.
QString printable(QString text);
