#include "dialogs/print/MachineInfoPrinter.h"

#include "app/services/Common.h"
#include "dialogs/print/MachineInfoLines.h"
#include "document/MachineInfo.h"
#include "print/PaperText.h"
#include "print/PrintJob.h"

#include <QPagedPaintDevice>

#include <algorithm>

namespace {

constexpr int PageCharacters = MachineInfoMargin + 2 * MachineInfoField;

/// The user's font, or a smaller one if the page is too narrow for margin and fields.
QFont fittingFont(QPagedPaintDevice &paper)
{
    QFont font = userFont();
    const double needed = PaperText(font, paper).characterWidth() * PageCharacters;
    if (needed > paper.width() && font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * paper.width() / needed);
    }
    return font;
}

class PagePainter
{
public:
    explicit PagePainter(PrintJob &job) : m_job(job), m_text(fittingFont(job.paper()), job.paper()) { }

    bool paint(const MachineInfoLine &line);

private:
    bool ensureSpace(double height);
    double leftOf(int character) const { return character * m_text.characterWidth(); }
    void drawSqueezed(double left, double width, const QString &text);

    PrintJob &m_job;
    PaperText m_text;
    double m_top = 0;
    bool m_hasPage = false;
};

bool PagePainter::paint(const MachineInfoLine &line)
{
    const double first = leftOf(MachineInfoMargin);
    const double second = leftOf(MachineInfoMargin + MachineInfoField);
    const double toTheEdge = m_job.paper().width() - second;
    const bool isLong = line.second.size() > MachineInfoField;
    const int height = isLong ? m_text.lineCount(line.second, toTheEdge) : 1;
    if (!ensureSpace(height * m_text.lineHeight())) {
        return false;
    }
    drawSqueezed(first, second - first - m_text.characterWidth() / 2, line.first);
    if (isLong) {
        m_text.draw(
            m_job.painter(), {second, m_top, toTheEdge, height * m_text.lineHeight()}, Qt::AlignLeft, line.second);
    } else {
        drawSqueezed(second, toTheEdge, line.second);
    }
    m_top += height * m_text.lineHeight();
    return true;
}

bool PagePainter::ensureSpace(double height)
{
    if (m_hasPage && m_top + height <= m_job.paper().height()) {
        return true;
    }
    m_top = 0;
    m_hasPage = m_job.startPage();
    if (m_hasPage) {
        m_job.painter().setFont(m_text.font());
        m_job.painter().setPen(Qt::black);
    }
    return m_hasPage;
}

void PagePainter::drawSqueezed(double left, double width, const QString &text)
{
    if (text.isEmpty()) {
        return;
    }
    QPainter &painter = m_job.painter();
    painter.save();
    painter.translate(left, m_top + m_text.ascent());
    const double factor = std::min(1.0, width / m_text.width(text));
    painter.scale(factor, 1);
    painter.drawText(QPointF(0, 0), text);
    painter.restore();
}

} // namespace

bool printMachineInfo(PrintJob &job, const MachineInfo &machine, const QString &title)
{
    PagePainter painter(job);
    const QList<MachineInfoLine> lines = machineInfoLines(machine, title);
    return std::ranges::all_of(lines, [&painter](const MachineInfoLine &line) { return painter.paint(line); });
}
