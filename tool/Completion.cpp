#include "tool/Completion.h"

#include "app/services/Messages.h"
#include "tool/Command.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto script = R"(# Completes tabrix-tool in bash. Made by: tabrix-tool help --format bash
_tabrix_tool()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
    local choices= list= prefix=
    COMPREPLY=()
    # bash takes --option=value for three words
    if [ "$current" = = ]; then
        current=
    elif [ "$previous" = = ]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    local commands='%1'
    if [ "$COMP_CWORD" -eq 1 ]; then
        COMPREPLY=($(compgen -W "$commands --help --version" -- "$current"))
        return
    fi
    case "$command $previous" in
%2    esac
    if [ -n "$list" ]; then
        case $current in
        *,*)
            prefix=${current%,*},
            current=${current##*,}
            ;;
        esac
        COMPREPLY=($(compgen -P "$prefix" -W "$list" -- "$current"))
        return
    fi
    if [ -z "$choices" ]; then
        case $command in
%3        esac
    fi
    COMPREPLY=($(compgen -W "$choices" -- "$current"))
}
complete -o bashdefault -o default -F _tabrix_tool tabrix-tool
)";

QStringList dashed(const Option &option)
{
    QStringList names;
    for (const QString &name : option.names) {
        names << (name.size() == 1 ? u"-"_s : u"--"_s) + name;
    }
    return names;
}

/// What follows an option: its choices, or whatever bash completes by itself.
QString valueLines(const Command &command, const Option &option)
{
    if (option.value == OptionValue::None) {
        return {};
    }
    QStringList patterns;
    for (const QString &name : dashed(option)) {
        patterns << u'\'' + command.name + u' ' + name + u'\'';
    }
    const QString choices = option.choices.join(u' ');
    const QString action = option.value == OptionValue::Choice ? u"choices='"_s + choices + u'\''
        : option.value == OptionValue::List                    ? u"list='"_s + choices + u'\''
                                                               : u"return"_s;
    return u"    "_s + patterns.join(u" | "_s) + u") "_s + action + u" ;;\n"_s;
}

QString optionLine(const Command &command)
{
    QStringList names;
    for (const Option &option : optionsOf(command)) {
        names << dashed(option);
    }
    const QString arguments = command.usage == "[COMMAND]"_L1 ? u"choices=$commands"_s : u"return"_s;
    return u"        "_s + command.name + u") case $current in -*) choices='"_s + names.join(u' ') + u"' ;; *) "_s
        + arguments + u" ;; esac ;;\n"_s;
}

} // namespace

QString bashCompletion()
{
    QStringList names;
    QString values;
    QString options;
    for (const Command &command : toolCommands()) {
        names << command.name;
        for (const Option &option : optionsOf(command)) {
            values += valueLines(command, option);
        }
        options += optionLine(command);
    }
    return filledText(QString::fromLatin1(script), {names.join(u' '), values, options});
}
