#include "resources/QtTextTable.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr QtTextEntry entries[] = {
    // File dialog
    {"QAbstractFileIconProvider", "Alias", u"エイリアス"},
    {"QAbstractFileIconProvider", "Drive", u"ドライブ"},
    {"QAbstractFileIconProvider", "File", u"ファイル"},
    {"QAbstractFileIconProvider", "File Folder", u"ファイルフォルダ"},
    {"QAbstractFileIconProvider", "Folder", u"フォルダ"},
    {"QAbstractFileIconProvider", "Shortcut", u"ショートカット"},
    {"QAbstractFileIconProvider", "Unknown", u"不明"},
    {"QFileSystemModel",
        "<b>The name \"%1\" cannot be used.</b><p>Try using another name, with fewer characters or no punctuation "
        "marks.",
        u"<b>名前 \"%1\" は使えません。</b><p>もっと短い名前、または記号を含まない名前にしてください。"},
    // Print set-up
    {"QPrintDialog", "Invalid Pages Definition", u"ページ指定の誤り"},
    {"QPrintDialog",
        "%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' to define ranges and "
        "make sure ranges do not intersect with each other.",
        u"%1 "
        u"は正しい書き方ではありません。ページや範囲は「,」で区切り、範囲は「-"
        u"」で指定し、範囲が重ならないようにしてください。"},
    {"QPrintDialog", "Duplex Settings Conflicts", u"両面印刷の設定の競合"},
    {"QPrintDialog", "There are conflicts in duplex settings. Do you want to fix them?",
        u"両面印刷の設定に競合があります。修正しますか？"},
    {"QPrintSettingsOutput", "Pages", u"ページ指定"},
    {"QPrintSettingsOutput",
        "Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a hyphen. E.g: "
        "3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
        u"ページまたは範囲をコンマで区切って指定します。範囲は 2 つの数字をハイフンでつなぎます。例: 3,5-7,9 では "
        u"3、5、6、7、9 ページを印刷します。"},
    {"QPrintSettingsOutput", "Double Sided Printing", u"両面印刷"},
    {"QPrintSettingsOutput", "Off", u"しない"},
    {"QPrintSettingsOutput", "Long side binding", u"長辺とじ"},
    {"QPrintSettingsOutput", "Short side binding", u"短辺とじ"},
    {"QPrintPropertiesWidget", "Advanced", u"詳細設定"},
    {"QPrintPropertiesWidget", "There are conflicts in some options. Please fix them.",
        u"競合しているオプションがあります。修正してください。"},
    {"QPrintPropertiesDialog", "Page Setup Conflicts", u"ページ設定の競合"},
    {"QPrintPropertiesDialog", "There are conflicts in page setup options. Do you want to fix them?",
        u"ページ設定に競合があります。修正しますか？"},
    {"QPrintPropertiesDialog", "Advanced Option Conflicts", u"詳細設定の競合"},
    {"QPrintPropertiesDialog", "There are conflicts in some advanced options. Do you want to fix them?",
        u"詳細設定に競合があります。修正しますか？"},
    {"QPPDOptionsModel", "Name", u"名前"},
    {"QPPDOptionsModel", "Value", u"値"},
    {"QOptionsWidget", "Invalid Option", u"無効なオプション"},
    {"QOptionsWidget", "No Option", u"オプションなし"},
    {"QCupsPrinterSupport", "Authentication Needed", u"認証が必要です"},
    {"QCupsPrinterSupport", "Authentication needed to use %1 on %2.", u"%2 の %1 を使うには認証が必要です。"},
    {"QCupsPrinterSupport", "Authentication needed to use %1.", u"%1 を使うには認証が必要です。"},
    {"QCupsPrinterSupport", "Username:", u"ユーザ名:"},
    {"QCupsPrinterSupport", "Password:", u"パスワード:"},
    {"Print Device Input Slot", "Automatic", u"自動"},
    {"Print Device Output Bin", "Automatic", u"自動"},
};

} // namespace

std::span<const QtTextEntry> qtTextEntries()
{
    return entries;
}

QString QtTextTable::translate(
    const char *context, const char *english, const char * /*disambiguation*/, int /*count*/) const
{
    const auto found = std::ranges::find_if(entries, [context, english](const QtTextEntry &entry) {
        return std::string_view(entry.english) == english && std::string_view(entry.context) == context;
    });
    return found == std::end(entries) ? QString() : QString::fromUtf16(found->japanese);
}
