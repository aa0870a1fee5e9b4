#include "platform/CellLineEdit.h"

#include "platform/CellInput.h"

#include <algorithm>

using namespace Qt::StringLiterals;

// Takes text away from anything: a text that the program has put there, or a number that got too great by a pasted
// part, must be able to go.
class CellLineEdit::Validator final : public QValidator
{
public:
    Validator(const CellType &type, CellLineEdit *edit)
        : QValidator(edit), m_type(type), m_last(edit->QLineEdit::text())
    {
        connect(edit, &QLineEdit::textChanged, this, [this](const QString &text) { m_last = text; });
    }

    State validate(QString &text, int & /*position*/) const override
    {
        const State state = CellInput::check(m_type, text);
        const bool isLess = text.size() <= m_last.size() && CellInput::check(m_type, m_last) == Invalid;
        return state == Invalid && isLess ? Intermediate : state;
    }

private:
    CellType m_type;
    QString m_last;
};

CellLineEdit::CellLineEdit(const CellType &type, const QString &text, QWidget *parent)
    : QLineEdit(text, parent), m_original(QLineEdit::text())
{
    setObjectName(u"cellEditor"_s);
    setFrame(false);
    if (type.kind == CellType::Kind::Text && type.maxLength > 0) {
        // A longer text from a file can be changed, but not made longer.
        setMaxLength(std::max(type.maxLength, int(text.size())));
    } else if (type.kind != CellType::Kind::Text) {
        setValidator(new Validator(type, this));
    }
}
