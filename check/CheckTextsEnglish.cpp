#include "check/CheckTexts.h"

namespace {

using enum CheckId;

constexpr CheckText texts[] = {
    // The file cannot be read, or not as a whole
    {NoParameterSection, u"There is no line \"[Paramater]\".",
        u"The rows begin after a line that reads exactly \"[Paramater]\". Without it the file is not opened.",
        u"[paramater]", u"Write the line exactly like this, with a capital P and without spaces."},
    {CountNotANumber, u"%1 is not a whole number from 0 to 32767.",
        u"\"Paramater\" says how many rows there are. If it is not a number, the file is not opened.",
        u"Paramater=many", u"Write the number of rows."},
    {NegativeCount, u"A count in this place is negative (field %3).",
        u"The counts of rows, ranges and conditions say how many entries follow. A negative one cannot be read.",
        u"Paramater=-1", u"Write how many entries there are. Often an earlier comma too many has moved the fields."},
    {NumberTooLarge, u"Field %3 has a number that is too large.",
        u"Counts have 16 bits, kinds of conditions 8, bounds are of single precision. A larger number ends the "
        u"reading.",
        u"0,1,1001,Name,,1,-1,-1,0,0,0,99999",
        u"Correct the number. Often a comma in a name or unit has moved the fields."},
    {FileEndsInRow, u"The file ends in the middle of this row, at field %3.",
        u"A row has twelve fields, then its ranges and conditions. The file ends before them all, or has an empty line "
        u"after the last row, which counts as one more row.",
        u"0,1,1001,Name", u"Complete the row, or remove the empty line at the end of the file."},
    {TooManyRows, u"There are more rows than the machine information says.",
        u"Rows beyond the number in \"Paramater\" end the reading, and the file is not opened.",
        u"Paramater=1, followed by three rows", u"Correct the number in \"Paramater\", or remove the rows."},
    {RowsMissing, u"%1 says %3 rows, but the file has %4.",
        u"The missing rows are shown empty and are written as empty rows by the next save.",
        u"Paramater=3, followed by two rows", u"Correct the number in \"Paramater\", or add the rows."},
    {RowBeyondCount, u"%1 says %3 rows, but the file has %4. The last one is not shown, and is lost by a save.",
        u"One row more than \"Paramater\" says is read but never shown, and so a save does not write it.",
        u"Paramater=1, followed by two rows", u"Correct the number in \"Paramater\", or remove the row."},
    {LastFieldOpen, u"Nothing ends the last field of the file. It may have been cut.",
        u"A row ends with a line end, or with a comma if it has neither ranges nor conditions. A file that ends "
        u"without "
        u"it may be the beginning of a longer one, and its last value the beginning of a longer value.",
        u"0,1,1001,Name,,1,-1,-1,0,0,0,1,0,40",
        u"Compare the last row with an earlier version. If it is complete, open and save the file."},
    {NoModelName, u"There is no model name (%1).",
        u"If \"Name\" is missing or empty, nothing else of the machine information is read, the number of rows "
        u"included.",
        u"Name=", u"Enter the model name."},
    // A save would lose or change something
    {CommaInText, u"Parameter %1, \"%2\": the text has a comma, which ends the field.",
        u"Texts are written without quotation marks. The part after the comma becomes a field of its own, and all "
        u"fields "
        u"after it move.",
        u"0,1,1001,\"Name, long\",...", u"Write the text without a comma."},
    {LineEndInText, u"%1 (%2): the text has a line end, which ends the field.",
        u"A line end in a text ends its field. All fields after it move.", u"A name of two lines, in quotation marks",
        u"Write the text in one line."},
    {LeadingQuote, u"Parameter %1, \"%2\": the text begins with a quotation mark.",
        u"A field that begins with a quotation mark runs to the next one, across commas and line ends.", u"\"A\" type",
        u"Write the text without the quotation mark at its beginning."},
    {EdgeSpaces, u"%1 (%2): spaces at the beginning or end of the text are lost.",
        u"Spaces around a field are dropped by the next reading.", u"0,1,1001,\" Name \",...", u"Remove the spaces."},
    {EnclosingQuotes, u"%1: the quotation marks around the value are lost.",
        u"One pair of quotation marks around a value is dropped with each reading.", u"Name=\"\"XT\"\"",
        u"Remove the quotation marks."},
    {OtherCharacter, u"%1 (%2): the text has a character that would come back as another one.",
        u"The bytes of two characters, written one after the other, mean a third one in this code page.",
        u"A lone first byte of a two-byte character before a letter", u"Retype the text."},
    {CharacterOutsidePage, u"%1 (%2): the text has a character that code page %3 does not have.",
        u"A character that the code page does not have cannot be written; the save fails.", u"\u00E9 in code page 932",
        u"Write the text with other characters."},
    {BytesOutsidePage, u"%1 (%2): %3 bytes are not characters of code page %4.",
        u"Such bytes are kept as they are, but nobody can read them. Often the file is of the other code page.",
        u"The byte 81 in code page 1252",
        u"Check the file with --code-page 932 or 1252. If it stays, retype the text."},
    {ValueCut, u"%1: the value has %3 bytes. What is beyond 127 is lost.",
        u"Values of the machine information are read up to 127 bytes.", u"Name= with 130 letters",
        u"Shorten the value."},
    {EmptyEntry, u"%1: the value is empty, which ends the list.",
        u"A list ends at its first empty value. The entries after it are not read.", u"Option0=\" \"",
        u"Enter the value, or remove the entry and renumber the others."},
    {CurrentMissing, u"%1: the rated current of this capacity is missing.",
        u"Capacities and rated currents come in pairs. A save would end the file at this capacity, without its rows.",
        u"Capacity1=0.75 without ICapacity1", u"Add the rated current, or remove the capacity."},
    {CapacityMissing, u"%1: the capacity of this rated current is missing.",
        u"Capacities and rated currents come in pairs. A current without its capacity is not written.",
        u"ICapacity1=4.2 without Capacity1", u"Add the capacity, or remove the rated current."},
    {BoundDigits, u"Parameter %1, \"%2\": a bound of %3 does not survive a save.",
        u"Bounds have seven significant digits. More are rounded, and one below 0.0001 is written in a form that is "
        u"read "
        u"as a range.",
        u"0.12345678", u"Write the bound with at most seven digits."},
    {BoundsReversed, u"Parameter %1, \"%2\": the lower bound %3 is above the upper bound %4, which a save loses.",
        u"A range whose upper bound is below the lower one is shown, and saved, as the single value of its lower "
        u"bound.",
        u"40,10", u"Exchange the bounds."},
    {RangeChanged, u"Parameter %1, \"%2\": %3 becomes %4 by a save.",
        u"The grid's text cannot show this range as it is, for example one with a negative bound, so that a save "
        u"writes "
        u"another one.",
        u"-10,10", u"Give the range in a form that the grid can show: 0-10, 5- or 5."},
    {ConditionsChanged, u"Parameter %1, \"%2\": %3 becomes %4 by a save.",
        u"Conditions that do not fit the form are dropped: a subject that is neither a number nor MODE nor OP, a value "
        u"that is not a number, a range without an upper value.",
        u"X,0,1", u"Correct the condition."},
    {ValueChanged, u"Parameter %1, \"%2\": %3 becomes %4 by a save.",
        u"The field does not hold what it is meant for, and an open and a save replace it: a factory setting that is "
        u"not a "
        u"number becomes 0, a step that is not 1, 0.1, 0.01 or 0.001 becomes 1 or none.",
        u"A minimum step of 0.5", u"Enter a value that the field can hold."},
    {LineDropped, u"Line %3 is not written by a save: %4",
        u"Comments, keys that the format does not have, a key's second line and numbered keys after a gap are not "
        u"kept.",
        u"; a comment", u"Remove the line, or keep what it says somewhere else."},
    {SpelledOtherwise, u"%1 (%2): %3 is written as %4.",
        u"The value stays the same, but a save writes it in its uniform spelling.", u"007 instead of 7",
        u"Nothing has to be done. tabrix-tool format makes it uniform."},
    {LayoutDiffers, u"A save writes other bytes for the same content.",
        u"Line ends, spaces around fields or the order of keys are not those that a save gives.",
        u"Line ends of LF alone", u"Nothing has to be done. tabrix-tool format makes it uniform."},
    // The content is wrong in itself
    {NumberEmpty, u"The parameter has no number.",
        u"Conditions and the box for jumping find a parameter by its number.", u"0,,1001,Name,...",
        u"Enter the number, or delete the row."},
    {NumberTwice, u"Parameter %1 is already in row %3.",
        u"Two rows with one number: which of them counts is not known.", u"Two rows of number 79",
        u"Delete one of the rows, or change its number."},
    {NumberOrder, u"Parameter %1 comes after %3.",
        u"Parameters are expected in ascending order of their numbers. This is only unusual.", u"80 followed by 79",
        u"Sort the rows by their numbers, unless the order is meant."},
    {RangesOverlap, u"Parameter %1, \"%2\": the ranges %3 overlap at %4.",
        u"A value that is in two ranges hints at a bound that was mistyped.", u"0-10,5-20", u"Correct the bounds."},
    {FactoryOutsideRanges, u"Parameter %1, \"%2\": %3 is outside its ranges %4.",
        u"A drive that is reset to its factory settings would have a value that cannot be set.",
        u"Factory setting 50, range 0-40", u"Correct the factory setting or the ranges."},
    {FactoryBetweenSteps, u"Parameter %1, \"%2\": %3 is not a multiple of the minimum step %4.",
        u"The value cannot be set again once it has been changed.", u"Factory setting 0.55, minimum step 0.1",
        u"Correct the factory setting or the minimum step."},
    {RangeCheckWithoutRange, u"Parameter %1, \"%2\": there is no range to check against.",
        u"The range check is ticked, but the parameter has no setting range.", u"...,1,0, at the end of a row",
        u"Enter the range, or clear the tick."},
    {ConditionOnMissing, u"Parameter %1, \"%2\": %3 is about parameter %4, which the file does not have.",
        u"The condition can never be decided.", u"79=1 in a file without parameter 79",
        u"Correct the number, or delete the condition."},
    {ConditionOnItself, u"Parameter %1, \"%2\": %3 is about the parameter itself.",
        u"Whether a parameter is read should not depend on its own value.", u"79=1 at parameter 79",
        u"Correct the number, or delete the condition."},
    {ConditionOutsideRange, u"Parameter %1, \"%2\": %3 names a value that parameter %4 cannot have.",
        u"The value is outside the setting ranges of the parameter that the condition is about.",
        u"79=9, where parameter 79 has the range 0-7", u"Correct the value or the ranges."},
    {ConditionAlways, u"Parameter %1, \"%2\": %3 always holds.",
        u"The parameter is never read in a bulk read: the condition covers all values, or another one holds whenever "
        u"this "
        u"one does not.",
        u"79=0-7, where parameter 79 has the range 0-7", u"Correct or delete the condition."},
    {ConditionNever, u"Parameter %1, \"%2\": %3 never holds.",
        u"The condition has no effect: no value of its subject fulfils it.", u"MODE=9, where the modes are 0 to 7",
        u"Correct or delete the condition."},
    {UnknownFunctionBits, u"Parameter %1, \"%2\": %3 has bits that are no function group of this model (%4).",
        u"The groups of a model follow from its file's name. The functional list code dialog clears other bits on OK.",
        u"1000 in a file whose name does not begin with KQM3", u"Correct the code, or the file's name."},
    {CapacityOrder, u"%1: %3 kW comes after %4 kW.", u"Capacities are expected in ascending order.",
        u"Capacity0=0.75, Capacity1=0.4", u"Sort the capacities with their currents."},
    {CapacityTwice, u"%1: %3 kW is in the list already.", u"Two entries for one capacity: one of them is mistyped.",
        u"Capacity0=0.4, Capacity1=0.4", u"Correct or delete one of them."},
    {NameTooLong, u"Parameter %1, \"%2\": the name is %3 characters wide. Lists and print-outs show %4.",
        u"The column of names is 25 half-width characters wide, unless a user makes it wider. The end of a longer name "
        u"is "
        u"not printed.",
        u"A name of 30 letters", u"Shorten the name."},
    {ValueTooLongToPrint, u"%1: the value has %3 characters, of which %4 are printed.",
        u"The printed page of machine information has fields of 20 characters.", u"Name=XT-240 general purpose drive",
        u"Shorten the value, unless it does not matter on paper."},
    {HelpIdShared, u"Parameter %1, \"%2\": %3 is also the help topic of row %4, \"%5\".",
        u"Two parameters of different names show the same help. This may be meant.", u"1001 at two parameters",
        u"Enter the parameter's own topic, unless one topic explains both."},
};

static_assert(isComplete(texts), "every check has its text, in the order of CheckId");

} // namespace

std::span<const CheckText> englishCheckTexts()
{
    return texts;
}
