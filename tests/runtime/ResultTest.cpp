#include "runtime/Result.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"

#include <gtest/gtest.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

Result<QString> half(const QString &text)
{
    if (text.isEmpty()) {
        return FailureCode::InputPastEnd;
    }
    return text.first(text.size() / 2);
}

} // namespace

TEST(AResult, isAValueOrAFailure)
{
    const auto value = half(u"abcd"_s);
    ASSERT_TRUE(value);
    EXPECT_EQ(*value, u"ab"_s);
    EXPECT_EQ(value->size(), 2);
    EXPECT_EQ(value.valueOr(u"other"_s), u"ab"_s);
    const auto failure = half({});
    ASSERT_FALSE(failure);
    EXPECT_EQ(failure.failure().code, FailureCode::InputPastEnd);
    EXPECT_EQ(failure.valueOr(u"other"_s), u"other"_s);
    EXPECT_NE(value, failure);
    EXPECT_EQ(half({}), failure);
}

TEST(AResult, withoutAValueSucceedsUnlessItHasAFailure)
{
    EXPECT_TRUE(Result<>());
    const Result<> failed = Failure::system(ENOENT);
    ASSERT_FALSE(failed);
    EXPECT_EQ(failed.failure().systemError, ENOENT);
}

TEST(AFailure, isWordedWithItsArgumentsOrTheSystemsReason)
{
    LanguageBase = EnglishBase;
    EXPECT_EQ(failureText({FailureCode::Overflow}), u"Overflow"_s);
    EXPECT_EQ(failureText(Failure::system(ENOENT)), Failure::system(ENOENT).reason());
    EXPECT_EQ(failureText({.code = FailureCode::LockHeld, .systemError = EBUSY}), Failure::system(EBUSY).reason());
    EXPECT_EQ(failureText({FailureCode::RowCharacterMissing, {u"7"_s, u"%1"_s, u"0025"_s, u"932"_s}}),
        u"Row 7: the character \"%1\" (U+0025) does not exist in code page 932."_s);
}

TEST(AFailure, isTextlessOnlyIfItIsSilent)
{
    for (int code = 0; code <= int(FailureCode::CopiesNotRead); ++code) {
        const Failure failure{.code = FailureCode(code), .systemError = EIO};
        EXPECT_EQ(failureText(failure).isEmpty(), failure.isSilent()) << code;
    }
}
