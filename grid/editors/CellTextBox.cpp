#include "grid/editors/CellTextBox.h"

#include "desktop/RefusedInput.h"
#include "grid/cells/CellInput.h"

#include <QInputMethodEvent>
#include <QMimeData>
#include <QSignalBlocker>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

CellTextBox::CellTextBox(const CellType &type, const QString &text, QWidget *parent)
    : QPlainTextEdit(text, parent)
    , m_type(type)
    , m_lineEnd(text.contains("\r\n"_L1) ? u"\r\n"_s
              : text.contains(u'\n')     ? u"\n"_s
                                         : u"\r"_s)
    , m_originalLines(rawLines())
{
    setObjectName(u"cellEditor"_s);
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);
    selectAll();
    if (type.kind == CellType::Kind::Text && type.maxLength > 0) {
        m_maxLength = std::max(qsizetype(type.maxLength), text.size());
        connect(this, &QPlainTextEdit::textChanged, this, &CellTextBox::cutOverhang);
    }
}

QString CellTextBox::text() const
{
    return rawLines().replace(u'\n', m_lineEnd);
}

bool CellTextBox::isAcceptable() const
{
    const bool hasOwnLimit = m_type.kind == CellType::Kind::Text;
    return hasOwnLimit || CellInput::check(m_type, text()) == QValidator::Acceptable;
}

int CellTextBox::neededHeight() const
{
    constexpr int maxLines = 8;
    const int lines = std::clamp(blockCount() + 1, 2, maxLines);
    return lines * fontMetrics().lineSpacing() + 2 * int(document()->documentMargin());
}

bool CellTextBox::needsKey(int key) const
{
    static constexpr std::array endingKeys = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Backtab};
    return std::ranges::find(endingKeys, key) == endingKeys.end();
}

void CellTextBox::insertFromMimeData(const QMimeData *source)
{
    textCursor().insertText(CellInput::onOneLine(source->text()));
    ensureCursorVisible();
}

void CellTextBox::inputMethodEvent(QInputMethodEvent *event)
{
    QInputMethodEvent composed(event->preeditString(), event->attributes());
    composed.setCommitString(
        CellInput::onOneLine(event->commitString()), event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(&composed);
    event->setAccepted(composed.isAccepted());
}

// The raw text keeps no-break spaces, which the document's plain text turns into ordinary ones.
QString CellTextBox::rawLines() const
{
    return document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

void CellTextBox::cutOverhang()
{
    if (text().size() > m_maxLength) {
        RefusedInput::show(*this, m_type);
    }
    QTextCursor cursor = textCursor();
    for (qsizetype over = text().size() - m_maxLength; over > 0 && !cursor.atStart();
         over = text().size() - m_maxLength) {
        const QSignalBlocker quiet(this);
        // A line end is one position, however many characters it has.
        const int positions = int(std::max<qsizetype>(over / m_lineEnd.size(), 1));
        int begin = std::max(cursor.position() - positions, 0);
        begin -= begin > 0 && document()->characterAt(begin).isLowSurrogate() ? 1 : 0;
        cursor.setPosition(begin, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
}
