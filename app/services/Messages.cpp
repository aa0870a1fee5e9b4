#include "app/services/Messages.h"

#include "app/services/Language.h"

#include <optional>

namespace {

/// The text for a code; `std::nullopt` for a silent one.
std::optional<OwnText> textOf(FailureCode code)
{
    switch (code) {
    case FailureCode::Overflow:
        return OwnText::Overflow;
    case FailureCode::TypeMismatch:
        return OwnText::TypeMismatch;
    case FailureCode::SubscriptOutOfRange:
        return OwnText::SubscriptOutOfRange;
    case FailureCode::InputPastEnd:
        return OwnText::InputPastEnd;
    case FailureCode::PrinterError:
        return OwnText::PrinterError;
    case FailureCode::System:
    case FailureCode::LockHeld:
        return OwnText::SystemReason;
    case FailureCode::NotAFile:
        return OwnText::NotAFile;
    case FailureCode::FileTooLarge:
        return OwnText::FileTooLarge;
    case FailureCode::FileChanging:
        return OwnText::FileChanging;
    case FailureCode::RowCharacterMissing:
        return OwnText::RowCharacterMissing;
    case FailureCode::KeyCharacterMissing:
        return OwnText::KeyCharacterMissing;
    case FailureCode::FileBeingSaved:
        return OwnText::FileBeingSaved;
    case FailureCode::FileChanged:
        return OwnText::FileChangedQuestion;
    case FailureCode::FileAppeared:
        return OwnText::FileAppearedQuestion;
    case FailureCode::VersionNotKept:
        return OwnText::SaveWithoutVersion;
    case FailureCode::CopiesNotRead:
        return OwnText::CopiesNotRead;
    case FailureCode::RulesNotRead:
        return OwnText::RulesNotRead;
    case FailureCode::RulesNotIni:
        return OwnText::RulesNotIni;
    case FailureCode::RulesTwice:
        return OwnText::RulesTwice;
    case FailureCode::RulesUnknownId:
        return OwnText::RulesUnknownId;
    case FailureCode::RulesUnknownKey:
        return OwnText::RulesUnknownKey;
    case FailureCode::RulesUnknownSeverity:
        return OwnText::RulesUnknownSeverity;
    case FailureCode::RulesWithoutReason:
        return OwnText::RulesWithoutReason;
    case FailureCode::NoParameterSection:
    case FailureCode::NoFileName:
    case FailureCode::Declined:
        return std::nullopt;
    }
    return std::nullopt;
}

} // namespace

QString filledText(QStringView text, const QStringList &arguments)
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

QString ownText(OwnText id, const QStringList &arguments)
{
    const OwnTextEntry &entry = ownTextEntries()[std::size_t(id)];
    return filledText(LanguageBase == JapaneseBase ? entry.japanese : entry.english, arguments);
}

QString captionText(const Caption &caption)
{
    const OwnText *own = std::get_if<OwnText>(&caption);
    return own != nullptr ? ownText(*own) : ResString(std::get<Text>(caption));
}

QString failureText(const Failure &failure)
{
    const auto text = textOf(failure.code);
    if (!text) {
        return {};
    }
    return ownText(*text, *text == OwnText::SystemReason ? QStringList{failure.reason()} : failure.arguments);
}
