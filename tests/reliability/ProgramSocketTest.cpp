// Who reaches whom by a socket of a name, and who does not.

#include "runtime/ProgramSocket.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <functional>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// A name that no other test run has.
QByteArray ownName()
{
    return "test " + QByteArray::number(::getpid());
}

/// A program of another user, which knows the name that this user's programs have.
class Stranger
{
public:
    /// Lets it use a socket and the name's address, and waits until it has done so.
    explicit Stranger(const std::function<int(int, const sockaddr *, socklen_t)> &use)
    {
        constexpr uid_t nobody = 65534;
        const QByteArray name = "tabrix-" + QByteArray::number(::geteuid()) + '-' + ownName();
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::ranges::copy(name, address.sun_path + 1);
        const auto size = socklen_t(offsetof(sockaddr_un, sun_path) + 1 + std::size_t(name.size()));
        int ends[2] = {};
        EXPECT_EQ(::pipe(ends), 0);
        m_process = ::fork();
        if (m_process == 0) {
            const int handle = ::setuid(nobody) == 0 ? ::socket(AF_UNIX, SOCK_SEQPACKET, 0) : -1;
            const char done = use(handle, reinterpret_cast<const sockaddr *>(&address), size) == 0 ? 'y' : 'n';
            ::write(ends[1], &done, 1) == 1 ? ::pause() : 0;
            ::_exit(0);
        }
        char done = 0;
        EXPECT_EQ(::read(ends[0], &done, 1), 1);
        EXPECT_EQ(done, 'y');
        ::close(ends[0]);
        ::close(ends[1]);
    }
    ~Stranger()
    {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
    Q_DISABLE_COPY_MOVE(Stranger)

private:
    pid_t m_process;
};

} // namespace

TEST(ProgramSockets, giveANameToOneProgramAtATime)
{
    auto first = ProgramSocket::named(ownName());
    ASSERT_TRUE(first);
    const auto second = ProgramSocket::named(ownName());
    ASSERT_FALSE(second);
    EXPECT_EQ(second.failure().systemError, EADDRINUSE);
    EXPECT_TRUE(ProgramSocket::named(ownName() + '2'));
    *first = {};
    EXPECT_TRUE(ProgramSocket::named(ownName()));
}

TEST(ProgramSockets, reachOnlyAProgramThatListens)
{
    const auto reached = [] {
        const auto socket = ProgramSocket::to(ownName());
        return socket ? 0 : socket.failure().systemError;
    };
    EXPECT_EQ(reached(), ECONNREFUSED);
    const auto first = ProgramSocket::named(ownName());
    ASSERT_TRUE(first);
    EXPECT_EQ(reached(), ECONNREFUSED);
    ASSERT_TRUE(first->listen());
    EXPECT_EQ(reached(), 0);
}

TEST(ProgramSockets, keepMessagesApartAndTellOfTheEnd)
{
    const auto server = ProgramSocket::named(ownName());
    ASSERT_TRUE(server && server->listen());
    EXPECT_FALSE(server->accept());
    auto client = ProgramSocket::to(ownName());
    const ProgramSocket served = server->accept();
    ASSERT_TRUE(client && served);
    EXPECT_EQ(served.receive(), std::nullopt);
    EXPECT_TRUE(client->send("one") && client->send("two"));
    EXPECT_EQ(served.receive(), "one");
    EXPECT_EQ(served.receive(), "two");
    *client = {};
    EXPECT_EQ(served.receive(), QByteArray());
    EXPECT_FALSE(served.send("too late"));
}

TEST(ProgramSockets, keepWhatCameBeforeMessagesWereRefused)
{
    const auto server = ProgramSocket::named(ownName());
    ASSERT_TRUE(server && server->listen());
    const auto client = ProgramSocket::to(ownName());
    const ProgramSocket served = server->accept();
    ASSERT_TRUE(client && served);
    EXPECT_TRUE(served.send("in time"));
    client->refuseMessages();
    EXPECT_FALSE(served.send("too late"));
    EXPECT_EQ(client->receive(), "in time");
    EXPECT_EQ(client->receive(), QByteArray());
}

// Only root can become another user.
TEST(ProgramSockets, neitherReachAnotherUserNorListenToOne)
{
    if (::geteuid() != 0) {
        GTEST_SKIP() << "needs the rights of root";
    }
    {
        const auto server = ProgramSocket::named(ownName());
        ASSERT_TRUE(server && server->listen());
        const Stranger visitor(::connect);
        EXPECT_FALSE(server->accept());
        EXPECT_TRUE(ProgramSocket::to(ownName()));
        EXPECT_TRUE(server->accept());
    }
    const Stranger owner([](int handle, const sockaddr *address, socklen_t size) {
        return ::bind(handle, address, size) == 0 ? ::listen(handle, 1) : -1;
    });
    const auto reached = ProgramSocket::to(ownName());
    ASSERT_FALSE(reached);
    EXPECT_EQ(reached.failure().systemError, EPERM);
}
