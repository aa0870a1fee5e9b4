#include "app/services/Messages.h"
#include "runtime/Failure.h"
#include "runtime/WindowsApi.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct NumberedError
{
    int number; ///< errno
    DWORD code; ///< the error of Windows whose text is shown
};

/// Windows' own text of one of its errors, in its language.
QString textOf(DWORD code)
{
    return qt_error_string(int(code));
}

class SystemFailure : public testing::TestWithParam<NumberedError>
{
};

} // namespace

TEST_P(SystemFailure, isWordedAsWindowsWordsIt)
{
    const auto [number, code] = GetParam();
    EXPECT_EQ(Failure::system(number).reason(), textOf(code));
    EXPECT_EQ(failureText(Failure::system(number)), textOf(code));
}

INSTANTIATE_TEST_SUITE_P(Numbers, SystemFailure,
    testing::ValuesIn(std::vector<NumberedError>{
        {ENOENT, ERROR_FILE_NOT_FOUND},
        {EACCES, ERROR_ACCESS_DENIED},
        {EISDIR, ERROR_ACCESS_DENIED},
        {EBUSY, ERROR_SHARING_VIOLATION},
        {ENOSPC, ERROR_DISK_FULL},
        {EEXIST, ERROR_ALREADY_EXISTS},
        {EROFS, ERROR_WRITE_PROTECT},
        {EINVAL, ERROR_INVALID_PARAMETER},
    }),
    [](const auto &tested) { return "errno" + std::to_string(tested.param.number); });

TEST(SystemFailureOfACall, keepsWhatOnlyWindowsKnows)
{
    SetLastError(ERROR_NOT_READY);
    const Failure noDisk = Failure::lastSystemCall();
    EXPECT_EQ(noDisk.reason(), textOf(ERROR_NOT_READY));
    SetLastError(ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(Failure::lastSystemCall(), Failure::system(ENOENT));
    SetLastError(0);
    EXPECT_EQ(Failure::lastSystemCall(), Failure::system(EIO)); // never "Success"
}

TEST(SystemFailureOfACall, isNeverTextless)
{
    for (int number = 1; number < 150; ++number) {
        EXPECT_FALSE(Failure::system(number).reason().isEmpty()) << number;
    }
}
