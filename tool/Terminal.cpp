#include "tool/Terminal.h"

#include "runtime/StandardStreams.h"

using namespace Qt::StringLiterals;

namespace {

QLatin1StringView codeOf(TextStyle style)
{
    constexpr QLatin1StringView codes[] = {"1"_L1, "2"_L1, "1;31"_L1, "32"_L1, "1;33"_L1, "36"_L1};
    return codes[std::size_t(style)];
}

} // namespace

bool isOutputTerminal()
{
    return isTerminal(1);
}

bool isErrorTerminal()
{
    return isTerminal(2);
}

bool isOutputColored(ColorUse use)
{
    if (use != ColorUse::Auto) {
        return use == ColorUse::Always;
    }
    const bool isInGitsPager = qEnvironmentVariable("GIT_PAGER_IN_USE") == "true"_L1;
    return qEnvironmentVariableIsEmpty("NO_COLOR") && (isOutputTerminal() || isInGitsPager);
}

QString Painter::operator()(TextStyle style, const QString &text) const
{
    return m_isColored ? u"\x1B["_s + codeOf(style) + u'm' + text + u"\x1B[0m"_s : text;
}

QString printable(QString text)
{
    for (QChar &character : text) {
        if (character.category() == QChar::Other_Control) {
            character = u' ';
        }
    }
    return text;
}
