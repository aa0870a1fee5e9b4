#include "runtime/AnsiText.h"
#include "runtime/PrivateProfile.h"
#include "runtime/WindowsApi.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/QtPrinters.h"

#include <array>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr int bufferSize = 128;

/// What Windows finds in a file; `std::nullopt` for an absent key.
std::optional<QByteArray> fromTheCall(const QString &fileName, const char *section, const char *key)
{
    constexpr auto absent = "GetPrivateProfieReadError";
    std::array<char, bufferSize> buffer{};
    const QByteArray name = fileName.toLocal8Bit().replace('/', '\\');
    const DWORD length = GetPrivateProfileStringA(section, key, absent, buffer.data(), bufferSize, name);
    const QByteArray value(buffer.data(), qsizetype(length));
    return value == absent ? std::nullopt : std::optional(value);
}

/// Profiles made of what matters to the look-up, and of what should not.
class RandomProfile
{
public:
    explicit RandomProfile(unsigned seed) : m_random(seed) { }

    QByteArray bytes()
    {
        QByteArray bytes;
        for (int line = 0; line < 12; ++line) {
            bytes += this->line() + oneOf({"\r\n", "\r\n", "\r\n", "\n", "\r", "\r\n\r\n"});
        }
        return bytes;
    }

private:
    QByteArray oneOf(const std::vector<QByteArray> &texts)
    {
        return texts[std::uniform_int_distribution<std::size_t>(0, texts.size() - 1)(m_random)];
    }

    QByteArray space() { return oneOf({"", "", "", "", " ", "  ", "\t", "\v", "\f", " \t "}); }

    QByteArray line()
    {
        const QByteArray kind = oneOf({"section", "key", "key", "key", "key", "key", "other"});
        if (kind == "section") {
            return space() + '[' + space() + oneOf({"Inverter", "INVERTER", "inverter", "Other", "Inv", ""}) + space()
                + oneOf({"]", "]", "]", "]x", "] ; note", "", "]]"}) + space();
        }
        if (kind == "other") {
            return oneOf({"", " ", ";Name=a", "; note", "=", "=a", "Name", "Name a", "x=[Inverter]", "\"Name\"=a"});
        }
        return space() + oneOf({"Name", "Name", "NAME", "name", "Code", "Names", "Na me", ";Name"}) + space()
            + oneOf({"=", "=", "=", "=", "==", ""}) + space() + value() + space();
    }

    QByteArray value()
    {
        const QByteArray text = oneOf({"", "a", "a b", "a;b", "a=b", "\"", "'", "\\", "x, y", "[a]", "\x93\xFA",
            QByteArray(120, 'x'), QByteArray(126, 'y'), QByteArray(128, 'z')});
        const QByteArray quote = oneOf({"", "", "", "\"", "'"});
        return quote + text + oneOf({quote, quote, quote, "", "\"", "'"});
    }

    std::mt19937 m_random;
};

/// The one difference that is meant: of a value in quotes Wine gives one byte less than fits, and Windows all of it.
bool isCutByWine(const QByteArray &ours, const std::optional<QByteArray> &call)
{
    return ours.size() == bufferSize - 1 && call && ours.startsWith(*call) && call->size() == bufferSize - 2;
}

} // namespace

class ProfileCall : public DocumentFixture
{
};

TEST_F(ProfileCall, findsWhatTheProgramFindsInThousandsOfProfiles)
{
    useCodePage(1252);
    int found = 0;
    for (unsigned seed = 1; seed <= 6'000; ++seed) {
        const QByteArray bytes = RandomProfile(seed).bytes();
        // A name of its own each time: Windows remembers the profile that it read last.
        const QString file = put(bytes, u"p%1.inv"_s.arg(seed));
        for (const char *key : {"Name", "Code"}) {
            const auto call = fromTheCall(file, "Inverter", key);
            const auto ours = PrivateProfile(bytes).value(u"Inverter"_s, QString::fromLatin1(key), bufferSize);
            QByteArray encoded;
            ASSERT_FALSE(ours && ansiCodePage().encode(*ours, encoded));
            found += ours ? 1 : 0;
            EXPECT_TRUE(
                (ours && isCutByWine(encoded, call)) || (call == (ours ? std::optional(encoded) : std::nullopt)))
                << "seed " << seed << ' ' << key << ": the call has " << (call ? call->constData() : "none")
                << ", the program " << (ours ? encoded.constData() : "none") << " in\n"
                << testing::PrintToString(bytes);
        }
        QFile::remove(file);
    }
    EXPECT_GT(found, 2'000) << "the profiles hold too little to compare";
}
