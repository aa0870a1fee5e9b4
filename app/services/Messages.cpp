#include "app/services/Messages.h"

#include "app/services/Language.h"
#include "runtime/FileFailure.h"

namespace {

/// One pass over the text, so that an argument that looks like a placeholder is not filled in turn.
QString filled(QStringView text, const QStringList &arguments)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int number = text[i] == u'%' && i + 1 < text.size() ? text[i + 1].digitValue() : -1;
        if (number >= 1 && number <= arguments.size()) {
            result += arguments[number - 1];
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

} // namespace

QString ownText(OwnText id, const QStringList &arguments)
{
    const OwnTextEntry &entry = ownTextEntries()[std::size_t(id)];
    return filled(LanguageBase == JapaneseBase ? entry.japanese : entry.english, arguments);
}

QString runTimeErrorText(RunTimeError error)
{
    return failureText(FileFailure::of(error));
}

QString failureText(const FileFailure &failure)
{
    return failure.text ? ownText(*failure.text, failure.arguments) : QString();
}
