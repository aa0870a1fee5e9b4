#include "editor/FillLimits.h"

#include "grid/cells/CellInput.h"
#include "runtime/NumberText.h"

using namespace Qt::StringLiterals;

QString filledText(const CellType &type, const QString &text)
{
    if (type.kind != CellType::Kind::CheckBox) {
        return CellInput::stored(type, text);
    }
    if (!text.isEmpty() && !isNumeric(text)) {
        return text;
    }
    return CellInput::isTicked(text) ? u"1"_s : u"0"_s;
}

std::optional<FillRefusal> fillRefusal(const CellType &type, const QString &text)
{
    using Kind = CellType::Kind;
    if (text.isEmpty()) {
        return std::nullopt;
    }
    if (CellInput::hasLineEnd(text)) {
        return FillRefusal::LineBreak;
    }
    switch (type.kind) {
    case Kind::CheckBox:
        return text == u"0" || text == u"1" ? std::nullopt : std::optional(FillRefusal::NoChoice);
    case Kind::ComboBox:
        return type.items.contains(text) || type.unlisted.contains(text) ? std::nullopt
                                                                         : std::optional(FillRefusal::NoChoice);
    case Kind::Text:
    case Kind::Integer:
    case Kind::Float:
        break;
    }
    if (CellInput::check(type, text) == QValidator::Acceptable) {
        return std::nullopt;
    }
    return type.kind == Kind::Text ? FillRefusal::TooLong : FillRefusal::NotInRange;
}
