#pragma once

#include <QtGlobal>

/// The texts of the fixed table (resources/StringTable.h) that the program shows, by their identifiers there. A name
/// says what the text is for; the table has the words.
enum class Text : qint16 {
    // General
    Ok = 1,
    Cancel = 2,
    Yes = 3,
    No = 4,
    Untitled = 7,
    FrameTitle = 8,
    ProgramName = 9,
    // Menus
    MenuFile = 10,
    MenuOpen = 11,
    MenuClose = 12,
    MenuSave = 13,
    MenuSaveAs = 14,
    MenuPrint = 15,
    MenuExit = 16,
    MenuEdit = 20,
    MenuCut = 21,
    MenuCopy = 22,
    MenuPaste = 23,
    MenuAddPaste = 24,
    MenuAddLine = 25,
    MenuDeleteLines = 26,
    MenuMachineInfo = 27,
    MenuFuncCode = 28,
    MenuPrCond = 29,
    MenuVisible = 30,
    MenuToolBar = 31,
    MenuStatusBar = 32,
    MenuFont = 33,
    MenuColumns = 34,
    MenuWindow = 40,
    MenuCascade = 41,
    MenuTile = 42,
    MenuHelp = 45, ///< also the dialogs' Help button
    MenuContents = 46,
    MenuAbout = 47,
    // Tool tips
    TipOpen = 50,
    TipSave = 51,
    TipPrint = 52,
    TipCut = 60,
    TipCopy = 61,
    TipPaste = 62,
    TipAddPaste = 63,
    TipAddLine = 64,
    TipDeleteLines = 65,
    TipFuncCode = 66,
    TipMachineInfo = 67,
    // Status bar
    ParameterNumber = 70,
    ParameterCount = 71, ///< also on the machine information's page
    // About box
    AboutTitle = 80,
    AboutMemory = 83,
    // Headings of the grid
    HeadingRowNumber = 100,
    HeadingNumber = 101,
    HeadingName = 102,
    HeadingSettingRange = 103,
    HeadingRangeCheck = 104,
    HeadingMin1 = 105,
    HeadingMin2 = 106,
    HeadingMin3 = 107,
    HeadingUnit = 108,
    HeadingFactorySetting = 109,
    HeadingHelpId = 110,
    HeadingFuncCode = 111,
    HeadingConditionCount = 112,
    HeadingCondition = 113,
    /// Users know the heading of the last column as the message for a block of another size; 114 is shown nowhere.
    SizeMismatch = HeadingCondition,
    // Machine information dialog
    MachineTitle = 119,
    MachineType = 120,
    MachineVoltageCode = 121,
    MachineCode = 122,
    MachineCapacities = 123,
    MachineAddCapacity = 124,
    MachineDeleteCapacity = 125,
    MachineOptions = 126,
    CapacityHeading = 128, ///< also on the machine information's page
    CurrentHeading = 129, ///< likewise
    // Functional list code dialog
    FuncTitle = 140,
    FuncGroups = 141,
    FuncFirstGroup = 142, ///< of 12, which follow one another
    FuncCode = 154,
    // Open dialog
    OpenFilter = 160,
    DefaultExtension = 161,
    // Visible columns dialog
    ColumnsTitle = 170,
    ColumnsHeading = 171,
    ColumnsPrompt = 172,
    // Add-capacity dialog
    CapTitle = 180,
    CapCapacity = 181,
    CapCurrent = 182,
    // Print dialog and what is printed
    PrintPrinter = 190,
    PrintMachineInfo = 191,
    PrintParameters = 192,
    PrintRange = 193,
    PrintAll = 194,
    PrintSelection = 195,
    PrintDisplayed = 196,
    PrintPages = 197,
    PrintFirstPage = 198,
    PrintLastPage = 199,
    PrintSetup = 200,
    PrintAbort = 201,
    PageFileName = 202,
    PageType = 203,
    PageTypeCode = 204,
    PageMachineCode = 205,
    PageVoltageCode = 206,
    PageOptions = 207,
    PageMachineInfo = 208,
    // Closing a changed document
    SaveChangesQuestion = 210, ///< |1: the document's title
    // Read condition dialog
    CondTitle = 220,
    CondAdd = 221,
    CondDelete = 222,
    CondParameters = 223,
    CondModes = 224,
    CondOptions = 225,
    CondCount = 226,
    CondFirstMode = 230, ///< of 8, which follow one another
    // Functional list code dialog of the KQM3 series
    FuncFirstGroupOfKqm3 = 242, ///< of 15, which follow one another
};

/// The text that comes offset texts after the first of a run.
constexpr Text textAfter(Text first, int offset)
{
    return static_cast<Text>(static_cast<qint16>(first) + offset);
}
