#include "runtime/Country.h"

#include "runtime/WindowsApi.h"

#include <QLocale>

namespace {

int countryOverride = 0;

int systemCountryCode()
{
#ifdef Q_OS_WIN
    return static_cast<int>(GetProfileIntA("intl", "iCountry", 1));
#else
    constexpr int japan = 81;
    return QLocale::system().territory() == QLocale::Japan ? japan : 1;
#endif
}

} // namespace

int countryCode()
{
    static const int system = systemCountryCode();
    return countryOverride != 0 ? countryOverride : system;
}

void setCountryCode(int code)
{
    countryOverride = code;
}
