#include "grid/editors/CellLineEdit.h"

#include "desktop/RefusedInput.h"
#include "grid/cells/CellInput.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

// Takes no line end, and always lets text be removed: it must be possible to delete a text that the program has set, or
// a number that became too large by pasting.
class CellLineEdit::Validator final : public QValidator
{
public:
    Validator(const CellType &type, CellLineEdit *edit)
        : QValidator(edit), m_type(type), m_last(edit->QLineEdit::text())
    {
        connect(edit, &QLineEdit::textChanged, this, [this](const QString &text) { m_last = text; });
    }

    State validate(QString &text, int &position) const override
    {
        keepOnOneLine(text, position);
        if (m_type.kind == CellType::Kind::Text) {
            return Acceptable;
        }
        const State state = CellInput::check(m_type, text);
        const bool isLess = text.size() <= m_last.size() && CellInput::check(m_type, m_last) == Invalid;
        return state == Invalid && isLess ? Intermediate : state;
    }

private:
    // However text was inserted, it begins where the former text no longer matches and ends at the caret.
    void keepOnOneLine(QString &text, int &position) const
    {
        if (!CellInput::hasLineEnd(text)) {
            return;
        }
        const qsizetype after = text.size() - position;
        const qsizetype maxKept = std::clamp(m_last.size() - after, qsizetype(0), qsizetype(position));
        const auto *const begin = std::mismatch(text.cbegin(), text.cbegin() + maxKept, m_last.cbegin()).first;
        const qsizetype kept = begin - text.cbegin();
        const QString line = CellInput::onOneLine(text.sliced(kept, position - kept));
        text.replace(kept, position - kept, line);
        position = int(kept + line.size());
    }

    CellType m_type;
    QString m_last;
};

CellLineEdit::CellLineEdit(const CellType &type, const QString &text, QWidget *parent) : QLineEdit(parent), m_type(type)
{
    setObjectName(u"cellEditor"_s);
    setFrame(false);
    // Without a limit a cell takes more than Qt's default of 32,767 characters. A text from a file that is longer than
    // the limit can be changed, but not made longer.
    const bool isLimited = type.kind == CellType::Kind::Text && type.maxLength > 0;
    setMaxLength(isLimited ? std::max(type.maxLength, int(text.size())) : std::numeric_limits<int>::max());
    // Only now: a field that has its text already lays it out again with each setting, which takes long for a long one.
    setText(text);
    m_original = QLineEdit::text();
    setValidator(new Validator(type, this));
    connect(this, &QLineEdit::inputRejected, this, [this] { RefusedInput::show(*this, m_type); });
}

QString CellLineEdit::text() const
{
    return isModified() ? CellInput::stored(m_type, QLineEdit::text()) : m_original;
}
