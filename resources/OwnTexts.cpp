#include "resources/OwnTexts.h"

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
    // Backups
    {OwnText::VersionNotKept, u"The earlier version could not be kept in %1: %2",
        u"以前の版を %1 に保存できませんでした: %2"},
    // Grid
    {OwnText::DeleteAllRowsQuestion, u"All %1 rows of the table are selected. Delete them all?",
        u"表の %1 行がすべて選択されています。すべて削除しますか？"},
};

} // namespace

std::span<const OwnTextEntry> ownTextEntries()
{
    return entries;
}
