#include "resources/StringTable.h"

#include <algorithm>

namespace {

// Users and their manuals know these texts as they stand: misspellings and half-width characters stay.
constexpr InterfaceText texts[] = {
    // General
    {1, u"OK", u"OK"},
    {2, u"CANCEL", u"ｷｬﾝｾﾙ"},
    {3, u"&Yes", u"はい(&Y)"},
    {4, u"&No", u"いいえ(&N)"},
    {7, u"No Name", u"無題"},
    {8, u"Parameter File Editer", u"ﾊﾟﾗﾒｰﾀﾌｧｲﾙ編集"},
    {9, u"Tabrix", u"Tabrix"},
    // Menus
    {10, u"&File", u"ﾌｧｲﾙ(&F)"},
    {11, u"&Open...", u"開く(&O)..."},
    {12, u"&Close", u"閉じる(&C)"},
    {13, u"&Save", u"上書き保存(&S)"},
    {14, u"Save &As...", u"名前を付けて保存(&A)..."},
    {15, u"&Print", u"印刷(&P)"},
    {16, u"E&xit", u"終了(&X)"},
    {20, u"&Edit", u"編集(&E)"},
    {21, u"Cu&t", u"切り取り(&T)"},
    {22, u"&Copy", u"ｺﾋﾟｰ(&C)"},
    {23, u"&Paste", u"貼り付け(&P)"},
    {24, u"Add Pa&ste", u"挿入貼り付け(&S)"},
    {25, u"&Add", u"空白行挿入(&A)"},
    {26, u"&Delete", u"選択行削除(&D)"},
    {27, u"&Machine inf...", u"機種情報表示(&M)..."},
    {28, u"&Functional list code...", u"機能ﾘｽﾄｺｰﾄﾞ編集(&F)..."},
    {29, u"Pr &Read Condition...", u"ﾊﾟﾗﾒｰﾀ読出し条件編集(&R)..."},
    {30, u"&Visible", u"表示(&V)"},
    {31, u"&Tool bar", u"ﾂｰﾙﾊﾞｰ(&T)"},
    {32, u"&Status bar", u"ｽﾃｰﾀｽﾊﾞｰ(&S)"},
    {33, u"&Font", u"ﾌｫﾝﾄ(&F)..."},
    {34, u"D&isp col setting...", u"表示ｶﾗﾑ設定(&I)..."},
    {40, u"&Window", u"ｳｨﾝﾄﾞｳ(&W)"},
    {41, u"&Cascade", u"重ねて表示(&C)"},
    {42, u"&Tile", u"並べて表示(&T)"},
    {45, u"&Help", u"ﾍﾙﾌﾟ(&H)"},
    {46, u"&Contents", u"目次(&C)"},
    {47, u"&About Tabrix...", u"ﾊﾞｰｼﾞｮﾝ情報(&A)..."},
    // Tool tips
    {50, u"File open", u"ファイルを開きます"},
    {51, u"File save", u"ファイルの上書き保存をします"},
    {52, u"Print", u"現在表示中のファイルを印刷します"},
    {60, u"Cut", u"選択している文字を切り取り、ｸﾘｯﾌﾟﾎﾞｰﾄﾞに貼り付けます"},
    {61, u"Copy", u"選択している文字をｺﾋﾟｰし、ｸﾘｯﾌﾟﾎﾞｰﾄﾞに貼り付けます"},
    {62, u"Paste", u"ｸﾘｯﾌﾟﾎﾞｰﾄﾞから文字を表に貼り付けます"},
    {63, u"Add line and Paste", u"行を挿入し、ｸﾘｯﾌﾟﾎﾞｰﾄﾞから文字を貼り付けます"},
    {64, u"Add line", u"現在選択している行の前に空白行を挿入します"},
    {65, u"Delete line", u"現在選択している行を削除します"},
    {66, u"Functional list code inf.", u"機能ﾘｽﾄｺｰﾄﾞ編集パネルを表示します"},
    {67, u"Machine inf.", u"機種情報パネルを表示します"},
    {68, u"Pr. read condition", u"一括ﾊﾟﾗﾒｰﾀ読出し不可条件パネルを表示します"},
    // Frame labels
    {70, u"Parameter No:", u"ﾊﾟﾗﾒｰﾀNo:"},
    {71, u"Parameter Count:", u"ﾊﾟﾗﾒｰﾀ数 :"},
    // About box
    {80, u"About Tabrix S/W", u"ﾊﾟﾗﾒｰﾀﾌｧｲﾙ編集S/Wのﾊﾞｰｼﾞｮﾝ情報"},
    {83, u"Abailable Memory:", u"使用可能メモリ:"},
    {84, u"System Resources:", u"システムリソース:"},
    // Grid headings and grid message
    {100, u"No", u"No"},
    {101, u"Pr", u"Pr"},
    {102, u"Name", u"名称"},
    {103, u"Setting Range", u"設定範囲"},
    {104, u"Range Check", u"範囲ﾁｪｯｸ"},
    {105, u"Min1", u"最小1"},
    {106, u"Min2", u"最小2"},
    {107, u"Min3", u"最小3"},
    {108, u"Unit", u"単位"},
    {109, u"Factory Setting", u"工場出荷"},
    {110, u"Help ID", u"ﾍﾙﾌﾟID"},
    {111, u"Func. Code", u"機能ﾘｽﾄ"},
    {112, u"Condition cnt.", u"条件数"},
    {113, u"Pr Read Condition", u"読出不可条件"},
    {114, u"It is different the selection range.", u"選択範囲が違います。"},
    // Machine information dialog
    {119, u"Machine Infomation", u"機種情報編集"},
    {120, u"&Type:", u"ｲﾝﾊﾞｰﾀ形名(&T):"},
    {121, u"&Voltage Code:", u"電圧ｺｰﾄﾞ(&V):"},
    {122, u"&Machine Code:", u"機種ｺｰﾄﾞ(&M):"},
    {123, u"&Capacity:", u"定格(&C):"},
    {124, u"&Add", u"追加(&A)"},
    {125, u"&Del", u"削除(&D)"},
    {126, u"&Pulg_in Option:", u"内蔵ｵﾌﾟｼｮﾝ(&P):"},
    {128, u"VFD capacity[kW]", u"適用ﾓｰﾀ容量[kW]"},
    {129, u"Rated current[A]", u"定格電流[A]"},
    // Functional list code dialog
    {140, u"Functional List Code", u"機能ﾘｽﾄｺｰﾄﾞ編集"},
    {141, u"Function:", u"機能:"},
    {142, u"Motor &Torque", u"ﾓｰﾀﾄﾙｸ(&T)"},
    {143, u"&Freq. setting", u"周波数設定(&F)"},
    {144, u"Acc/&Dec", u"加減速(&D)"},
    {145, u"&Protect", u"保護(&P)"},
    {146, u"&Monitor", u"ﾓﾆﾀ(&M)"},
    {147, u"&Brake", u"制動(&B)"},
    {148, u"Terminal &Alloc", u"端子割付(&A)"},
    {149, u"Ma&gnetic flux vector", u"磁束ﾍﾞｸﾄﾙ(&G)"},
    {150, u"&Intelligent", u"ｲﾝﾃﾘｼﾞｪﾝﾄ(&I)"},
    {151, u"Ca&libration", u"校正(&L)"},
    {152, u"&Option", u"ｵﾌﾟｼｮﾝ(&O)"},
    {153, u"Special &running", u"特殊運転(&R)"},
    {154, u"Func. Code:", u"機能ﾘｽﾄｺｰﾄﾞ:"},
    // File dialog
    {160, u"All files(*.*)|*.*|Parameter files(*.inv;*.ine)|*.inv;*.ine",
        u"全てのﾌｧｲﾙ(*.*)|*.*|ﾊﾟﾗﾒｰﾀﾌｧｲﾙ(*.inv;*.ine)|*.inv;*.ine"},
    {161, u"INV", u"INV"},
    // Visible columns dialog
    {170, u"List condition", u"ﾘｽﾄ表示状態"},
    {171, u"Display row:", u"表示項目:"},
    {172, u"Please check the display rows.", u"表示させる項目をﾁｪｯｸしてください。"},
    // Add-capacity dialog
    {180, u"Add capacity", u"容量追加"},
    {181, u"&VFD capacity:", u"ｲﾝﾊﾞｰﾀ容量(&V):"},
    {182, u"Rated &current:", u"定格電流(&C):"},
    // Print dialog and print-out
    {190, u"Printer devise:", u"使用するﾌﾟﾘﾝﾀ:"},
    {191, u"Machine &Info", u"機種情報印刷(&I)"},
    {192, u"&Parameter", u"ﾊﾟﾗﾒｰﾀ印刷(&P)"},
    {193, u"Print range selected", u"印刷範囲の選択"},
    {194, u"&All", u"すべて(&A)"},
    {195, u"S&elected point", u"選択した部分(&E)"},
    {196, u"&Display parameter", u"表示ﾊﾟﾗﾒｰﾀ(&D)"},
    {197, u"Pa&ge", u"ﾍﾟｰｼﾞ指定(&G)"},
    {198, u"Page to", u"ﾍﾟｰｼﾞから"},
    {199, u"Page", u"ﾍﾟｰｼﾞまで"},
    {200, u"&Setting", u"設定(&S)"},
    {201, u"Stop Printintg...", u"印刷をやめるときは、〈Cancel〉ボタンをクリックしてください。"},
    {202, u"File name:", u"ﾌｧｲﾙ名:"},
    {203, u"Type:", u"ｲﾝﾊﾞｰﾀ形名:"},
    {204, u"Sp. Code:", u"特殊ｺｰﾄﾞ:"},
    {205, u"Machine Code:", u"機種ｺｰﾄﾞ:"},
    {206, u"Voltage Code:", u"電圧ｺｰﾄﾞ:"},
    {207, u"Pulg_in Option", u"内蔵ｵﾌﾟｼｮﾝ"},
    {208, u"[Machine infomation]", u"[機種情報部]"},
    // Changed-file prompt
    {210, u"|1 is update.\nSave?", u"|1 は編集されています。\n 変更を保存しますか？"},
    // Read condition dialog
    {220, u"Pr Read Condition", u"ﾊﾟﾗﾒｰﾀ読出し条件"},
    {221, u"&Add", u"追加(&A)"},
    {222, u"&Del", u"削除(&D)"},
    {223, u"Pr Condition", u"ﾊﾟﾗﾒｰﾀ条件:"},
    {224, u"Op Mode Cond.", u"運転ﾓｰﾄﾞ条件:"},
    {225, u"Option Cond.", u"ｵﾌﾟｼｮﾝ条件:"},
    {226, u"Condition Count", u"条件数:"},
    {230, u"EXT", u"EXT"},
    {231, u"PU", u"PU"},
    {232, u"EXT JOG", u"EXT JOG"},
    {233, u"PU JOG", u"PU JOG"},
    {234, u"LNK", u"LNK"},
    {235, u"PU+EXT", u"PU+EXT"},
    {236, u"TIME", u"TIME"},
    {237, u"SP", u"SP"},
    // Function group labels of the KQM3 series
    {242, u"Mo&tor", u"ﾓｰﾀ(&T)"},
    {243, u"&Speed setting", u"速度設定(&S)"},
    {244, u"Acc/&Dec", u"加減速(&D)"},
    {245, u"&Protect", u"保護(&P)"},
    {246, u"&Monitor", u"ﾓﾆﾀ(&M)"},
    {247, u"&Brake", u"制動(&B)"},
    {248, u"Terminal &Alloc", u"端子割付(&A)"},
    {249, u"&V/F control", u"V/F制御(&V)"},
    {250, u" ", u" "},
    {251, u"Ca&libration", u"校正(&L)"},
    {252, u"&Option", u"ｵﾌﾟｼｮﾝ(&O)"},
    {253, u"Special &running", u"特殊運転(&R)"},
    {254, u"Sp&eed control", u"速度制御(&E)"},
    {255, u"Tor&que control", u"ﾄﾙｸ制御(&Q)"},
    {256, u"Positio&n control", u"位置制御(&N)"},
};

static_assert(std::ranges::is_sorted(texts, {}, &InterfaceText::id), "looked up by binary search");

} // namespace

std::span<const InterfaceText> interfaceTexts()
{
    return texts;
}

const InterfaceText *interfaceText(int id)
{
    const auto *found = std::ranges::lower_bound(texts, id, {}, &InterfaceText::id);
    return found != std::end(texts) && found->id == id ? found : nullptr;
}
