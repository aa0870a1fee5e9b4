#include "tool/ToolTexts.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"

namespace {

using enum ToolText;

constexpr ToolTextEntry entries[] = {
    // The program as a whole
    {ProgramSummary, u"Checks, compares and merges parameter definition files.",
        u"パラメータ定義ファイルを検査、比較、統合します。"},
    {CommandList,
        u"Usage: tabrix-tool COMMAND [OPTION...] FILE...\n\nCommands:\n%1\n"
        u"tabrix-tool COMMAND --help explains a command. \"-\" stands for standard input.\n"
        u"Exit status: 0 fine, 1 something was found, 2 something could not be done.\n",
        u"使い方: tabrix-tool コマンド [オプション...] ファイル...\n\nコマンド:\n%1\n"
        u"各コマンドの説明は tabrix-tool コマンド --help で表示します。「-」は標準入力を表します。\n"
        u"終了ステータス: 0 問題なし、1 見つかったものがある、2 実行できないことがあった。\n"},
    {NoSuchCommand, u"There is no command \"%1\". Try tabrix-tool --help.",
        u"コマンド「%1」はありません。tabrix-tool --help を参照してください。"},
    {UsageHint, u"Try tabrix-tool %1 --help.", u"tabrix-tool %1 --help を参照してください。"},
    {NoFile, u"A file is missing.", u"ファイルが指定されていません。"},
    {TooManyFiles, u"Too many files are given.", u"指定されたファイルが多すぎます。"},
    {BadValue, u"%1: \"%2\" is not one of %3.", u"%1: 「%2」は %3 のいずれでもありません。"},
    {UsageLine, u"Usage: tabrix-tool %1", u"使い方: tabrix-tool %1"},
    // Options
    {OptionHelp, u"Show this help.", u"この説明を表示します。"},
    {OptionCodePage, u"Code page of the files: 932, 1252 or auto (the default: what the bytes fit).",
        u"ファイルのコードページ: 932、1252、auto (既定: バイト列に合うもの)。"},
    {OptionLanguage, u"Language of the messages: en or ja (the default: the editor's).",
        u"メッセージの言語: en、ja (既定: エディタと同じ)。"},
    {OptionQuiet, u"Write no findings; only the exit status tells.",
        u"結果を出力せず、終了ステータスだけで知らせます。"},
    {OptionColor, u"Colours: auto (the default: on a terminal, unless NO_COLOR is set), always or never.",
        u"色: auto (既定: 端末で、NO_COLOR の指定がないとき)、always、never。"},
    {OptionOutput, u"Write to this file instead of standard output.",
        u"標準出力ではなく、このファイルに書き込みます。"},
    {ArgumentFiles, u"The files; \"-\" is standard input.", u"ファイル。「-」は標準入力です。"},
    {ArgumentFile, u"The file; \"-\" is standard input.", u"ファイル。「-」は標準入力です。"},
    {Progress, u"%1 of %2 files", u"%2 ファイル中 %1 ファイル完了"},
    // Files
    {CannotRead, u"%1: %2", u"%1: %2"},
    {CannotWrite, u"%1 cannot be written: %2", u"%1 に書き込めません: %2"},
    {CannotWriteOutput, u"The output cannot be written: %1", u"出力できません: %1"},
    {InRow, u"Row %1: %2", u"%1 行目: %2"},
    {MachineInformation, u"machine information", u"機種情報"},
    // check
    {CheckSummary, u"Say what is wrong in the files, or would be lost by opening and saving them.",
        u"ファイルの誤りと、開いて保存したときに失われるものを知らせます。"},
    {CheckFormatOption, u"Form of the output: text (FILE:ROW:COLUMN: SEVERITY: TEXT [ID]), json or sarif.",
        u"出力の形式: text (ファイル:行:列: 重大度: 説明 [ID])、json、sarif。"},
    {CheckSeverityOption, u"The least severity that counts: note, warning (the default) or error.",
        u"対象とする最低の重大度: note、warning (既定)、error。"},
    {CheckSelectOption, u"Only these checks; ids, separated by commas.",
        u"これらの検査だけを行います (ID をコンマで区切る)。"},
    {CheckIgnoreOption, u"All but these checks; ids, separated by commas.",
        u"これらの検査を除きます (ID をコンマで区切る)。"},
    {CheckExplainOption,
        u"Explain a check, or with \"all\" every one, and what tabrix-check.ini says about it for the files.",
        u"検査 (all ですべて) と、ファイルに対する tabrix-check.ini の設定を説明します。"},
    {CheckNameOption, u"What standard input is called.", u"標準入力をこの名前で呼びます。"},
    {RuleOff, u"For %1 it is switched off by %2: %3", u"%1 では %2 によりこの検査は行われません: %3"},
    {RuleSeverity, u"For %1 it counts as \"%4\" by %2: %3", u"%1 では %2 により「%4」として扱われます: %3"},
    {RuleNone, u"For %1 no tabrix-check.ini changes it.",
        u"%1 では、この検査を変更する tabrix-check.ini はありません。"},
    {Explanation, u"### %1\n\n%2. %3\n\nExample: `%4`\n\nWhat to do: %5\n",
        u"### %1\n\n%2。%3\n\n例: `%4`\n\n対処: %5\n"},
    {SeverityNote, u"Note", u"注記"},
    {SeverityWarning, u"Warning", u"警告"},
    {SeverityError, u"Error", u"エラー"},
    // diff
    {DiffSummary, u"Compare two files by parameter number.", u"二つのファイルをパラメータ番号ごとに比較します。"},
    {DiffArguments, u"The earlier and the later file.", u"以前のファイルと新しいファイル。"},
    {DiffFormatOption, u"Form of the output: text, json or html.", u"出力の形式: text、json、html。"},
    {DiffFieldsOption, u"Compare only these fields, separated by commas, such as name,ranges.",
        u"これらの項目だけを比較します (name,ranges のようにコンマで区切る)。"},
    {DiffSummaryOption, u"Only count the differences.", u"違いの数だけを出力します。"},
    {DiffExactOption, u"Compare numbers as texts: 1.0 differs from 1.",
        u"数値を文字列として比較します (1.0 と 1 は異なる)。"},
    {DiffGitOption, u"Take the arguments of a git external diff; differences are no failure then.",
        u"git の外部 diff の引数を受け取ります。違いがあっても終了ステータスは 0 です。"},
    {DiffTwoFiles, u"Two files are needed.", u"ファイルを二つ指定してください。"},
    {DiffUnmerged, u"%1 has conflicts that are not resolved.", u"%1 には未解決の競合があります。"},
    {DiffCounts, u"changed: %1, added: %2, removed: %3, moved: %4", u"変更: %1、追加: %2、削除: %3、移動: %4"},
    {DiffTitle, u"Differences between %1 and %2", u"%1 と %2 の違い"},
    {DiffNothing, u"There is no difference.", u"違いはありません。"},
    {DiffPlace, u"Place", u"箇所"},
    {DiffBefore, u"Before", u"変更前"},
    {DiffAfter, u"After", u"変更後"},
    {DiffAdded, u"added", u"追加"},
    {DiffRemoved, u"removed", u"削除"},
    {DiffMoved, u"moved after %1", u"%1 の後に移動"},
    {DiffMovedFirst, u"moved to the beginning", u"先頭に移動"},
    {PartMachine, u"Machine information", u"機種情報"},
    {PartCapacity, u"Capacity", u"容量"},
    {PartOption, u"Option", u"オプション"},
    {PartParameter, u"Parameter", u"パラメータ"},
    // text, format, show
    {TextSummary, u"Write a file's content as text, one value a line, for other tools' comparisons.",
        u"ファイルの内容を一行に一つの値で出力します。ほかのツールでの比較に使えます。"},
    {FormatSummary, u"Write what opening and saving the file would give.",
        u"ファイルを開いて保存したときの内容を出力します。"},
    {FormatInPlaceOption, u"Replace the files.", u"ファイルを置き換えます。"},
    {FormatCheckOption, u"Only list the files that would change.", u"変わるファイルの名前だけを出力します。"},
    {FormatForceOption, u"Also files that would lose data.", u"データが失われるファイルも対象にします。"},
    {FormatWouldLose, u"%1 would lose data (errors: %2). See tabrix-tool check; --force formats it all the same.",
        u"%1: データが失われます (エラー %2 件)。tabrix-tool check で確認してください。--force "
        u"を指定すると実行します。"},
    {FormatOneFile, u"Only one file can be written to standard output. Use --in-place or --check for more.",
        u"標準出力に書き込めるファイルは一つだけです。複数の場合は --in-place か --check を指定してください。"},
    {FormatNoInput, u"Standard input cannot be replaced in place.", u"標準入力は置き換えられません。"},
    {ShowSummary, u"Show the machine information and the parameters as tables.",
        u"機種情報とパラメータを表で表示します。"},
    // patch
    {PatchSummary, u"Apply what diff --format json wrote.", u"diff --format json の出力を適用します。"},
    {PatchArguments, u"The file, and the changes in JSON.", u"ファイルと、JSON 形式の変更内容。"},
    {PatchExactOption, u"Earlier values must be the same texts, not only the same numbers.",
        u"変更前の値が、数値としてではなく文字列として同じであることを求めます。"},
    {PatchNotAChangeList, u"%1 is not a list of changes: %2", u"%1 は変更内容のファイルではありません: %2"},
    {PatchRejected, u"%1 %2: %3", u"%1 %2: %3"},
    {RejectMissing, u"it is not there.", u"ありません。"},
    {RejectPresent, u"it is there already, with other values.", u"別の値ですでに存在します。"},
    {RejectOtherValue, u"%1 should be \"%2\" but is \"%3\".", u"%1 は「%2」のはずですが、「%3」です。"},
    {RejectNoPredecessor, u"%1, after which it was to come, is not there. It was put at the end.",
        u"その前にあるはずの %1 がないため、末尾に置きました。"},
    // merge
    {MergeSummary, u"Merge two changed versions of a file, by parameter and field.",
        u"一つのファイルから変更された二つの版を、パラメータと項目ごとに統合します。"},
    {MergeArguments, u"The common ancestor, our version and theirs.", u"共通の元のファイル、こちらの版、相手の版。"},
    {MergeNameOption, u"The name by which messages call the file.", u"メッセージで使うファイル名。"},
    {ConflictValue, u"%1 %2, %3: base \"%4\", ours \"%5\", theirs \"%6\". Ours was kept.",
        u"%1 %2、%3: 元の値「%4」、こちら「%5」、相手「%6」。こちらの値を残しました。"},
    {ConflictRemovedByUs, u"%1 %2: removed by us, changed by them. It stays removed.",
        u"%1 %2: こちらが削除し、相手が変更しました。削除したままにします。"},
    {ConflictRemovedByThem, u"%1 %2: changed by us, removed by them. It was kept.",
        u"%1 %2: こちらが変更し、相手が削除しました。残しました。"},
    {ConflictOrder, u"%1 %2: moved to different places. Our place was kept.",
        u"%1 %2: 異なる位置に移動されました。こちらの位置を残しました。"},
    {NoValue, u"(none)", u"(なし)"},
    // convert
    {ConvertSummary, u"Convert between parameter files (inv, ine), CSV and JSON, and to a workbook (xlsx).",
        u"パラメータファイル (inv、ine)、CSV、JSON を相互に変換し、ブック (xlsx) にも変換します。"},
    {ConvertArguments, u"The file that is read and the file that is written; \"-\" is standard input or output.",
        u"読み込むファイルと書き込むファイル。「-」は標準入力、標準出力です。"},
    {ConvertFromOption, u"Format of IN: inv, json or csv (the default: by its ending).",
        u"入力の形式: inv、json、csv (既定: 拡張子による)。"},
    {ConvertToOption, u"Format of OUT: inv, json, csv or xlsx (the default: by its ending).",
        u"出力の形式: inv、json、csv、xlsx (既定: 拡張子による)。"},
    {XlsxParameters, u"Parameters", u"パラメータ"},
    {XlsxSoftwareVersion, u"Software version", u"ソフトウェアバージョン"},
    {XlsxCodePage, u"Code page", u"コードページ"},
    {ConvertUnknownFormat, u"%1: neither the ending nor an option tells the format, which is one of %2.",
        u"%1: 拡張子からもオプションからも形式 (%2) を判別できません。"},
    // help and the manual
    {HelpSummary, u"Explain the program or one of its commands.", u"プログラムまたはコマンドを説明します。"},
    {HelpArguments, u"The command.", u"コマンド。"},
    {HelpFormatOption, u"What is written: text, man (the manual page) or bash (the completion for bash).",
        u"出力するもの: text、man (マニュアルページ)、bash (bash の補完)。"},
    {ManualPurpose, u"check, compare and merge parameter definition files",
        u"パラメータ定義ファイルの検査、比較、統合"},
    {ManualDescriptionText,
        u"tabrix-tool works on the files (.inv, .ine) that describe an inverter model to its set-up software, without "
        u"a "
        u"window. It changes no file but where a command says so, and replaces files as a whole: at every moment the "
        u"earlier or the new content is there.\n"
        u"\"-\" stands for standard input; pipes are read too. Several files are worked on side by side, what is found "
        u"comes in their order, and one that cannot be read does not stop the rest. Output is UTF-8.",
        u"tabrix-tool は、インバータの機種をセットアップソフトウェアに伝えるファイル (.inv、.ine) "
        u"をウィンドウなしで扱います。コマンドの説明にある場合のほかはファイルを変更しません。ファイルは全体として"
        u"置き換えられ、どの時点でも以前の内容か新しい内容のどちらかが残ります。\n"
        u"「-」は標準入力を表します。パイプも読み込めます。複数のファイルは並行して処理され、結果はファイルの順に出力"
        u"されます。読み込めないファイルがあっても残りは処理されます。出力は UTF-8 です。"},
    {ManualExitStatusList,
        u"0\tFine: nothing found, no difference, merged without a conflict.\n"
        u"1\tSomething was found: findings, differences, files that are not in the saved form, changes that do not "
        u"fit, "
        u"conflicts.\n"
        u"2\tSomething could not be done: wrong arguments, a file that cannot be read or written.",
        u"0\t問題なし。検査で何も見つからず、違いがなく、競合なしに統合されました。\n"
        u"1\t見つかったものがあります。検査結果、違い、保存形式でないファイル、適用できない変更、競合。\n"
        u"2\t実行できないことがありました。引数の誤り、読み書きできないファイル。"},
    {ManualEnvironmentList,
        u"LC_ALL, LC_MESSAGES, LANG\tThe country, and so the language, where --language does not name one.\n"
        u"NO_COLOR\tIf set, --color auto uses no colours.\n"
        u"TERM\tIf it is \"dumb\" or not set, there are neither colours nor a line for the progress.",
        u"LC_ALL, LC_MESSAGES, LANG\t国。--language の指定がないときの言語を決めます。\n"
        u"NO_COLOR\t設定されていると、--color auto では色を付けません。\n"
        u"TERM\t「dumb」または未設定のときは、色も進行状況も表示しません。"},
    {ManualFilesList,
        u"tabrix-check.ini\tBeside the files or in a folder above them: which checks are off, or of another severity, "
        u"and why. A section is the id of a check; its keys are severity (off, note, warning, error) and reason.\n"
        u".gitattributes\tWhere git-setup names the drivers for both endings.",
        u"tabrix-check.ini\tファイルと同じフォルダまたはその上のフォルダに置き、行わない検査、重大度を変える検査と"
        u"その理由を書きます。セクション名は検査の ID、キーは severity (off、note、warning、error) と reason です。\n"
        u".gitattributes\tgit-setup が二つの拡張子にドライバを割り当てるファイル。"},
    {ManualExampleList,
        u"tabrix-tool check *.inv\tWhat is wrong in these files, or would be lost by a save?\n"
        u"tabrix-tool diff --format html -o changes.html old.inv new.inv\tA page of what has changed, for a release "
        u"record.\n"
        u"tabrix-tool git-setup\tMake git compare and merge parameter files by number and field.",
        u"tabrix-tool check *.inv\tこれらのファイルの誤りや、保存で失われるものを知らせます。\n"
        u"tabrix-tool diff --format html -o changes.html old.inv "
        u"new.inv\t変更の一覧をリリース記録用のページにします。\n"
        u"tabrix-tool git-setup\tgit がパラメータファイルを番号と項目ごとに比較、統合するようにします。"},
    {ManualSeeAlsoList, u"tabrix(1), git(1), /usr/share/doc/tabrix/tool.md, /usr/share/doc/tabrix/checks.md",
        u"tabrix(1), git(1), /usr/share/doc/tabrix/tool.md, /usr/share/doc/tabrix/checks.md"},
    {ManualName, u"NAME", u"名前"},
    {ManualSynopsis, u"SYNOPSIS", u"書式"},
    {ManualDescription, u"DESCRIPTION", u"説明"},
    {ManualOptions, u"OPTIONS OF EVERY COMMAND", u"共通のオプション"},
    {ManualCommands, u"COMMANDS", u"コマンド"},
    {ManualExitStatus, u"EXIT STATUS", u"終了ステータス"},
    {ManualEnvironment, u"ENVIRONMENT", u"環境変数"},
    {ManualFiles, u"FILES", u"ファイル"},
    {ManualExamples, u"EXAMPLES", u"例"},
    {ManualSeeAlso, u"SEE ALSO", u"関連項目"},
    // What is not in the form of JSON that a command takes
    {JsonError, u"Line %1, column %2: %3", u"%1 行目 %2 文字目: %3"},
    {JsonFormat, u"\"format\" is not \"%1\", version %2.", u"\"format\" が \"%1\"、バージョン %2 ではありません。"},
    {JsonNotAnArray, u"%1: this is not an array.", u"%1: 配列ではありません。"},
    {JsonMissing, u"%1: \"%2\" is missing or is not a text.", u"%1: \"%2\" がないか、文字列ではありません。"},
    {JsonUnknown, u"%1: \"%2\" is not known.", u"%1: \"%2\" は使えません。"},
    {JsonBadChange, u"%1: the change \"%2\" is not added, removed, moved or changed.",
        u"%1: 変更の種類 \"%2\" は added、removed、moved、changed のいずれでもありません。"},
    {JsonOldAndNew, u"%1: \"%2\" needs \"old\" and \"new\".", u"%1: \"%2\" には \"old\" と \"new\" が必要です。"},
    {JsonTooManyRows, u"parameters: there are more than 32767.", u"parameters: 32767 個を超えています。"},
    {JsonBadList, u"%1: \"%2\" is not in its form: %3", u"%1: \"%2\" の形式が正しくありません: %3"},
    {JsonCodePage, u"\"codePage\" is not 932 or 1252.", u"\"codePage\" が 932 でも 1252 でもありません。"},
    // What is not in the form of CSV
    {CsvQuoteInside, u"Line %1, column %2: a quotation mark is inside a field that does not begin with one.",
        u"%1 行目 %2 文字目: 引用符で始まらないフィールドの途中に引用符があります。"},
    {CsvTextAfterQuote, u"Line %1, column %2: there is text after the closing quotation mark.",
        u"%1 行目 %2 文字目: 閉じる引用符の後に文字があります。"},
    {CsvQuoteOpen, u"Line %1, column %2: the closing quotation mark is missing.",
        u"%1 行目 %2 文字目: 閉じる引用符がありません。"},
    {CsvNotUtf8, u"Line %1, column %2: the text is not UTF-8.",
        u"%1 行目 %2 文字目: 文字コードが UTF-8 ではありません。"},
    {CsvHeader, u"Line %1, column %2: the columns have to be %3.",
        u"%1 行目 %2 文字目: 列は %3 でなければなりません。"},
    {CsvTooManyRows, u"Line %1, column %2: there are more than 32767 parameters.",
        u"%1 行目 %2 文字目: パラメータが 32767 個を超えています。"},
    {CsvFieldCount, u"Line %1, column %2: there are %3 fields instead of %4.",
        u"%1 行目 %2 文字目: フィールドが %4 個ではなく %3 個あります。"},
    {CsvOverflow, u"Line %1, column %2: the number is too large for its column.",
        u"%1 行目 %2 文字目: 数値が大きすぎて列に収まりません。"},
    {CsvUnknownKey, u"Line %1, column %2: \"%3\" is not a value of the machine information here.",
        u"%1 行目 %2 文字目: \"%3\" はここでは機種情報の項目として使えません。"},
    {CsvNoCodePage, u"Line %1, column %2: CodePage is missing, 932 or 1252.",
        u"%1 行目 %2 文字目: CodePage (932 または 1252) がありません。"},
    // print
    {PrintSummary, u"Print a file to PDF, as the editor prints it.",
        u"ファイルをエディタと同じ形で PDF に印刷します。"},
    {PrintMachineOption, u"Print the machine information alone.", u"機種情報だけを印刷します。"},
    {PrintParametersOption, u"Print the parameters alone.", u"パラメータだけを印刷します。"},
    {PrintColumnsOption,
        u"Print these columns, separated by commas, such as number,name (the default: those shown in the editor).",
        u"これらの列を印刷します (number,name のようにコンマで区切る。既定: エディタで表示している列)。"},
    {PrintPaperOption, u"Paper: A3, A4, A5, JisB4, JisB5, Letter, Legal or Tabloid (the default: the editor's).",
        u"用紙: A3、A4、A5、JisB4、JisB5、Letter、Legal、Tabloid (既定: エディタと同じ)。"},
    {PrintLandscapeOption, u"Print across the long side of the paper.", u"用紙を横向きにして印刷します。"},
    {CannotStart, u"%1 cannot be started: %2", u"%1 を起動できません: %2"},
    // git-setup
    {SetupSummary, u"Make git compare and merge parameter files with this program.",
        u"git がこのプログラムでパラメータファイルを比較、統合するように設定します。"},
    {SetupGlobalOption, u"For all of the user's repositories, not only this one.",
        u"このリポジトリだけでなく、利用者のすべてのリポジトリに設定します。"},
    {SetupPrintOption, u"Only show what would be set.", u"設定内容の表示だけを行います。"},
    {SetupRemoveOption, u"Undo the set-up.", u"設定を取り消します。"},
    {SetupFailed, u"%1 failed: %2", u"%1 が失敗しました: %2"},
};

static_assert(
    [] {
        for (std::size_t i = 0; i < std::size(entries); ++i) {
            if (std::size_t(entries[i].id) != i || entries[i].english.isEmpty() || entries[i].japanese.isEmpty()) {
                return false;
            }
        }
        return std::size(entries) == std::size_t(SetupFailed) + 1;
    }(),
    "every text is there, in the order of ToolText");

} // namespace

std::span<const ToolTextEntry> toolTextEntries()
{
    return entries;
}

bool isJapanese()
{
    return LanguageBase == JapaneseBase;
}

QString toolText(ToolText text, const QStringList &arguments)
{
    const ToolTextEntry &entry = entries[std::size_t(text)];
    return filledText(isJapanese() ? entry.japanese : entry.english, arguments);
}
