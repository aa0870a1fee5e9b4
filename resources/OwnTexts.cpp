#include "resources/OwnTexts.h"

#include <iterator>

namespace {

constexpr OwnTextEntry entries[] = {
    // Run-time errors
    {OwnText::Overflow, u"Overflow", u"オーバーフローしました。"},
    {OwnText::TypeMismatch, u"Type mismatch", u"型が一致しません。"},
    {OwnText::SubscriptOutOfRange, u"Subscript out of range", u"インデックスが有効範囲にありません。"},
    {OwnText::InputPastEnd, u"Input past end of file", u"ファイルの終わりを越えて読み込もうとしました。"},
    {OwnText::PrinterError, u"Printer error", u"プリンタエラーです。"},
    // Files
    {OwnText::SystemReason, u"%1", u"%1"},
    {OwnText::RowCharacterMissing, u"Row %1: the character \"%2\" (U+%3) does not exist in code page %4.",
        u"%1 行目: 文字「%2」(U+%3) はコードページ %4 にありません。"},
    {OwnText::KeyCharacterMissing, u"%1: the character \"%2\" (U+%3) does not exist in code page %4.",
        u"%1: 文字「%2」(U+%3) はコードページ %4 にありません。"},
    {OwnText::FileBeingSaved, u"Another Tabrix is saving this file at this moment. Try again later.",
        u"別の Tabrix がこのファイルを保存中です。しばらくしてからやり直してください。"},
    {OwnText::NotAFile, u"This is a pipe, a socket or a device. Only files can be opened and saved.",
        u"パイプ、ソケット、またはデバイスです。開いたり保存したりできるのはファイルだけです。"},
    {OwnText::FileTooLarge, u"The file is too large. Files of more than %1 MB cannot be opened.",
        u"ファイルが大きすぎます。%1 MB を超えるファイルは開けません。"},
    {OwnText::FileChanging, u"Another program is writing to this file. Try again when it has finished.",
        u"別のプログラムがこのファイルに書き込んでいます。書き込みが終わってからやり直してください。"},
    {OwnText::NotAHelpFile, u"This is not a help file.", u"ヘルプファイルではありません。"},
    // Saving
    {OwnText::FileChangedQuestion,
        u"Another program has changed this file since it was opened or saved here. Replace it all the same?",
        u"このファイルは、ここで開いた後または保存した後に、別のプログラムによって変更されています。置き換えますか？"},
    {OwnText::FileAppearedQuestion, u"There is a file of this name that was not opened or saved here. Replace it?",
        u"ここで開いたり保存したりしていない同名のファイルがあります。置き換えますか？"},
    {OwnText::ReadBackQuestion,
        u"Not everything would be read back from the file as it is now. Places concerned: %1\n\n%2\n\n"
        u"Save it like this all the same?",
        u"このまま保存すると、次に開いたとき元どおりに読み込めない箇所があります。該当箇所: %1\n\n%2\n\n"
        u"このまま保存しますか？"},
    {OwnText::ReadBackQuestionOfMany,
        u"Not everything would be read back from the file as it is now. Places concerned: %1. The first of them:\n\n"
        u"%2\n\nSave it like this all the same?",
        u"このまま保存すると、次に開いたとき元どおりに読み込めない箇所があります。該当箇所: %1。先頭の箇所:\n\n"
        u"%2\n\nこのまま保存しますか？"},
    {OwnText::ChangesNotKept,
        u"The changes could neither be saved nor safely kept for the next start. The window stays open so that they "
        u"are "
        u"not lost.",
        u"変更を保存できず、次回起動時のための控えも確実には残せませんでした。変更が失われないよう、"
        u"ウィンドウは開いたままにします。"},
    // What would not be read back of a cell
    {OwnText::CellHasComma, u"Row %1, parameter %2, \"%3\": the text has a comma, which ends the field.",
        u"%1 行目、パラメータ %2、「%3」: 文字列中のコンマで項目が区切られます。"},
    {OwnText::CellHasLineEnd, u"Row %1, parameter %2, \"%3\": the text has a line break, which ends the field.",
        u"%1 行目、パラメータ %2、「%3」: 文字列中の改行で項目が区切られます。"},
    {OwnText::CellHasLeadingQuote,
        u"Row %1, parameter %2, \"%3\": the text begins with a quotation mark, and the field would go on to the next "
        u"one.",
        u"%1 行目、パラメータ %2、「%3」: 文字列が引用符で始まり、次の引用符までが一つの項目になります。"},
    {OwnText::CellHasEdgeSpaces,
        u"Row %1, parameter %2, \"%3\": blanks at the beginning or end of the text are dropped.",
        u"%1 行目、パラメータ %2、「%3」: 文字列の先頭または末尾の空白は失われます。"},
    {OwnText::CellHasOtherCharacter,
        u"Row %1, parameter %2, \"%3\": the text has a character that would come back as another one.",
        u"%1 行目、パラメータ %2、「%3」: 別の文字として読み込まれる文字があります。"},
    {OwnText::CellHasLongBound,
        u"Row %1, parameter %2, \"%3\": a bound has more than seven digits or is smaller than 0.0001.",
        u"%1 行目、パラメータ %2、「%3」: 7 桁を超える値、または 0.0001 より小さい値があります。"},
    // What would not be read back of the machine information
    {OwnText::ValueHasLineEnd, u"Machine information, %1: the value has a line break, where it would end.",
        u"機種情報、%1: 値の途中に改行があり、そこで値が終わります。"},
    {OwnText::ValueHasEdgeSpaces, u"Machine information, %1: blanks at the beginning or end of the value are dropped.",
        u"機種情報、%1: 値の先頭または末尾の空白は失われます。"},
    {OwnText::ValueHasOtherCharacter,
        u"Machine information, %1: the value has a character that would not come back as it is.",
        u"機種情報、%1: 元どおりに読み込めない文字があります。"},
    {OwnText::ValueIsTooLong, u"Machine information, %1: the value is longer than 127 bytes and would be cut.",
        u"機種情報、%1: 値が 127 バイトを超えているため、途中で切れます。"},
    {OwnText::ValueHasEnclosingQuotes, u"Machine information, %1: the quotation marks around the value are dropped.",
        u"機種情報、%1: 値を囲む引用符は失われます。"},
    {OwnText::ValueIsEmpty, u"Machine information, %1: an empty value ends the list.",
        u"機種情報、%1: 値が空のため、一覧がそこで終わります。"},
    {OwnText::ModelNameMissing,
        u"Machine information, %1: without a model name neither the machine information nor the number of rows is "
        u"read.",
        u"機種情報、%1: 機種名がないと、機種情報も行数も読み込まれません。"},
    {OwnText::CurrentMissing,
        u"Machine information, %1: the rated current of this capacity is missing. The file would end there, without "
        u"its "
        u"parameters.",
        u"機種情報、%1: この容量の定格電流がありません。ファイルはそこで終わり、パラメータは保存されません。"},
    {OwnText::CapacityMissing, u"Machine information, %1: a rated current without its capacity is not saved.",
        u"機種情報、%1: 対応する容量のない定格電流は保存されません。"},
    // Backups
    {OwnText::SaveWithoutVersion,
        u"The earlier version could not be kept in %1: %2\n"
        u"If you save now, it is lost. Save all the same?",
        u"以前の版を %1 に保存できませんでした: %2\n"
        u"このまま保存すると、以前の版は失われます。それでも保存しますか？"},
    // Rules for checks
    {OwnText::RulesNotRead, u"%1 cannot be read: %2", u"%1 を読み込めません: %2"},
    {OwnText::RulesNotIni, u"%1 is not an INI file in UTF-8.", u"%1 は UTF-8 の INI ファイルではありません。"},
    {OwnText::RulesTwice, u"%1: %2 is there twice.", u"%1: %2 が重複しています。"},
    {OwnText::RulesUnknownId, u"%1: [%2] is not the id of a check, or is empty.",
        u"%1: [%2] は検査の ID でないか、中身がありません。"},
    {OwnText::RulesUnknownKey, u"%1: the key \"%2\" is not known here. Each section has severity and reason.",
        u"%1: キー「%2」は使えません。各セクションには severity と reason を書きます。"},
    {OwnText::RulesUnknownSeverity, u"%1: the severity of [%2] is \"%3\" instead of off, note, warning or error.",
        u"%1: [%2] の severity が「%3」です。off、note、warning、error のいずれかを指定してください。"},
    {OwnText::RulesWithoutReason, u"%1: [%2] has no reason.", u"%1: [%2] に reason がありません。"},
    // Recovery
    {OwnText::CopiesNotRead,
        u"Not every document with unsaved changes could be brought back from %1: %2\n"
        u"What is missing is kept there, and the next start tries again.",
        u"保存されていない変更のあるドキュメントの一部を %1 から復旧できませんでした: %2\n"
        u"復旧できなかったものはそのまま残り、次に起動したときにもう一度試みます。"},
    // Grid
    {OwnText::DeleteAllRowsQuestion, u"All %1 rows of the table are selected. Delete them all?",
        u"表の %1 行がすべて選択されています。すべて削除しますか？"},
    {OwnText::WholeNumberLimits, u"Only whole numbers from %1 to %2 can be entered here.",
        u"ここには %1 から %2 までの整数を入力してください。"},
    {OwnText::NumberLimits, u"Only numbers from %1 to %2 can be entered here.",
        u"ここには %1 から %2 までの数値を入力してください。"},
    {OwnText::TextLimit, u"No more than %1 characters can be entered here.", u"ここに入力できるのは %1 文字までです。"},
    // What a check finds in the grid
    {OwnText::FindingError, u"Error: %1 [%2]", u"エラー: %1 [%2]"},
    {OwnText::FindingWarning, u"Warning: %1 [%2]", u"警告: %1 [%2]"},
    {OwnText::FindingReached, u"%1 of %2. %3", u"%2 件中 %1 件目 — %3"},
    {OwnText::FindingHidden, u"In the hidden column \"%1\": %2", u"表示されていない列「%1」: %2"},
    {OwnText::NoFinding, u"There are no errors or warnings.", u"エラーも警告もありません。"},
    {OwnText::MachineInformation, u"machine information", u"機種情報"},
    // Why nothing was filled
    {OwnText::FillNotInRange, u"Row %1, \"%2\": only whole numbers from %3 to %4 fit here. Nothing was filled.",
        u"%1 行目、「%2」: ここに入力できるのは %3 から %4 までの整数だけです。フィルは行われませんでした。"},
    {OwnText::FillTooLong, u"Row %1, \"%2\": no more than %3 characters fit here. Nothing was filled.",
        u"%1 行目、「%2」: ここに入力できるのは %3 文字までです。フィルは行われませんでした。"},
    {OwnText::FillNoChoice, u"Row %1, \"%2\": only one of these fits here: %3. Nothing was filled.",
        u"%1 行目、「%2」: ここに入力できるのは次のいずれかだけです: %3。フィルは行われませんでした。"},
    {OwnText::FillLineBreak, u"Row %1, \"%2\": no text with a line break fits here. Nothing was filled.",
        u"%1 行目、「%2」: 改行を含む文字列は入力できません。フィルは行われませんでした。"},
    {OwnText::FillSeriesEnd, u"Row %1, \"%2\": the series ends before this cell. Nothing was filled.",
        u"%1 行目、「%2」: 連続データはこのセルの手前で終わります。フィルは行われませんでした。"},
    // Printing
    {OwnText::NoPageToPrint,
        u"There is no page to print from page %1 to page %2. The last page of the parameters is %3.",
        u"%1 ページから %2 ページまでの間に印刷するページがありません。パラメータの最終ページは %3 です。"},
    {OwnText::NoColumnToPrint, u"There are no parameters to print because their columns are hidden.",
        u"列が表示されていないため、印刷するパラメータがありません。"},
};

static_assert(
    [] {
        for (std::size_t i = 0; i < std::size(entries); ++i) {
            if (std::size_t(entries[i].id) != i || entries[i].english.isEmpty() || entries[i].japanese.isEmpty()) {
                return false;
            }
        }
        return std::size(entries) == std::size_t(OwnText::Count);
    }(),
    "every text of OwnText is there, in its order and in both languages");

} // namespace

std::span<const OwnTextEntry> ownTextEntries()
{
    return entries;
}
