#pragma once

#include "tests/app/RandomAnswers.h"
#include "tests/support/FrameTest.h"

#include <random>

/// The value of an environment variable; otherwise when there is no such number.
int fromEnvironment(const char *name, int otherwise);

/// Collects the warnings of Qt while it lives, except for what the platform without a display cannot do.
class Complaints
{
public:
    Complaints();
    ~Complaints();
    Q_DISABLE_COPY_MOVE(Complaints)

    static QStringList &list();

private:
    static void take(QtMsgType type, const QMessageLogContext &context, const QString &text);

    QtMessageHandler m_former;
};

/// A program that is used for long. Whatever asks is answered; what caches hold or what happens by the clock is
/// kept away, so that memory depends on what was done alone.
class LongUse : public FrameTest
{
protected:
    void SetUp() override;

    int upTo(int least, int most) { return std::uniform_int_distribution(least, most)(m_random); }
    template <typename List>
    const auto &oneOf(const List &list)
    {
        return list[size_t(upTo(0, int(std::size(list)) - 1))];
    }
    static void settle();
    /// Closes every window; changes are given up.
    void closeAll();
    /// The transfer buffer, the clipboard and the frame keep what was last used; makes that the same each time.
    void forgetLastUse();

    std::mt19937 m_random{unsigned(fromEnvironment("TABRIX_SOAK_SEED", 1))};
    RandomAnswers m_answers{m_random};
    QString m_small; ///< a file of three rows
};
