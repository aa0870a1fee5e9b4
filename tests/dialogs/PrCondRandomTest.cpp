// Random condition texts through the real dialog. A text is put together of pieces whose outcome is known when they are
// made, so that what is expected does not come from the code under test.

#include "dialogs/frmPrCond.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/support/Controls.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTimer>

#include <random>

using namespace Qt::StringLiterals;

namespace {

/// A piece of a condition text.
struct Piece
{
    enum Kind { Option, Parameter, Mode, Dropped };

    QString written;
    Kind kind = Dropped;
    QString rebuilt; ///< what OK makes of it; empty when OK drops its row
    bool parsed = true;
};

class PieceMaker
{
public:
    explicit PieceMaker(unsigned seed) : m_random(seed) { }

    int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(m_random); }

    Piece next()
    {
        switch (below(10)) {
        case 0:
        case 1:
            return option();
        case 2:
        case 3:
            return mode();
        case 4:
            return dropped();
        case 5:
            return oddParameter();
        default:
            return parameter();
        }
    }

private:
    QString number(int limit) { return QString::number(below(limit)); }
    QString blank() { return below(6) == 0 ? u" "_s : QString(); }
    QChar sign() { return below(2) == 0 ? u'=' : u'/'; }

    Piece option()
    {
        const QString letters = u"ABCxyz0189"_s;
        QString name;
        QString kept;
        for (int length = 1 + below(5); length > 0; --length) {
            const QChar letter = letters[below(int(letters.size()))];
            name += letter;
            kept += letter;
            name += below(8) == 0 ? u"-"_s : QString(); // dashes fall out of options
        }
        const QChar relation = sign();
        return {u"OP"_s + relation + blank() + name + blank(), Piece::Option, u"OP"_s + relation + kept};
    }

    Piece mode()
    {
        const QString value = number(9); // 8 has no name and stays as it is
        const QChar relation = sign();
        return {u"MODE"_s + relation + blank() + value, Piece::Mode, u"MODE"_s + relation + value};
    }

    Piece parameter()
    {
        const QString subject = number(1000);
        const QString first = number(32768);
        const QChar relation = sign();
        QString written = blank() + subject + blank() + relation + blank() + first + blank();
        if (below(3) != 0) {
            return {written, Piece::Parameter, subject + relation + first};
        }
        const QString second = number(32768);
        const bool exchanged = second.compare(first) < 0;
        return {written + u'-' + second, Piece::Parameter,
            subject + relation + (exchanged ? second + u'-' + first : first + u'-' + second)};
    }

    Piece oddParameter()
    {
        const QString subject = number(1000);
        const QString value = number(100);
        if (below(2) == 0) { // the first relation sign's successor decides, and falls out
            return {subject + u'/' + value + u'=' + value, Piece::Parameter, subject + u'=' + value + value};
        }
        return {subject + u"=-"_s + value, Piece::Parameter, QString()}; // a range without a beginning
    }

    Piece dropped()
    {
        static const QStringList texts{u"X=1"_s, u"mode=1"_s, u"MODE=A"_s, u"79="_s, u"=5"_s, u"79"_s, u""_s, u"OP="_s,
            u"79=1-x"_s, u"op=A"_s, u"MODE"_s};
        return {texts[below(int(texts.size()))], Piece::Dropped, QString(), false};
    }

    std::mt19937 m_random;
};

struct Expected
{
    int parsed = 0;
    QStringList conditions[3]; ///< by Piece::Kind, which is the order in the rebuilt text

    void take(const Piece &piece)
    {
        parsed += piece.parsed ? 1 : 0;
        if (!piece.rebuilt.isEmpty()) {
            conditions[piece.kind] << piece.rebuilt;
        }
    }
    QStringList all() const { return conditions[0] + conditions[1] + conditions[2]; }
};

TEST(RandomConditions, comeBackAsTheirPiecesSay)
{
    constexpr int rounds = 3000;
    useEnglish();
    frmPrCond dialog;
    auto &ok = control<QPushButton>(dialog, u"cmdOK"_s);
    PieceMaker pieces(20240517);
    QString lastText;
    for (int round = 0; round < rounds; ++round) {
        Expected expected;
        QStringList written;
        for (int i = pieces.below(6); i > 0; --i) {
            const Piece piece = pieces.next();
            written << piece.written;
            expected.take(piece);
        }
        const QString opened = written.join(u',');
        const qint16 openedCount = pieces.below(4) == 0 ? 9 : static_cast<qint16>(expected.parsed);
        const QString rebuilt = expected.all().join(u',');
        lastText = rebuilt.isEmpty() ? lastText : rebuilt;
        const auto rebuiltCount = static_cast<qint16>(expected.all().size());
        const bool changed = rebuiltCount != openedCount || lastText != opened;

        QString text = opened;
        qint16 count = openedCount;
        QTimer::singleShot(0, &ok, &QPushButton::click);
        ASSERT_EQ(dialog.ShowPrCond(u"1"_s, count, text), changed) << "text " << opened.toStdString();
        ASSERT_EQ(text, changed ? lastText : opened) << "text " << opened.toStdString();
        ASSERT_EQ(count, changed ? rebuiltCount : openedCount) << "text " << opened.toStdString();
    }
}

} // namespace
