#include "runtime/WholeFile.h"

#include "tests/runtime/WholeFileFixture.h"
#include "tests/support/QtPrinters.h"

#include <cerrno>

using namespace Qt::StringLiterals;

TEST_F(WholeFile, beyondTheBoundIsRefusedBeforeItTakesMemory)
{
    for (const qint64 size : {largestFile + 1, qint64(3) << 30, qint64(1) << 40}) {
        const QString file = putSparse(size);
        EXPECT_EQ(readWholeFile(file),
            (Failure{.code = FailureCode::FileTooLarge, .arguments = {u"256"_s}, .systemError = EFBIG}))
            << size;
    }
}

TEST_F(WholeFile, ofExactlyTheBoundIsRead)
{
    EXPECT_EQ(readWholeFile(put("12345"), 5), QByteArray("12345"));
    EXPECT_EQ(readWholeFile(put("123456"), 5).failure().code, FailureCode::FileTooLarge);
}

TEST_F(WholeFile, emptyIsRead)
{
    EXPECT_EQ(readWholeFile(put("")), QByteArray());
}
