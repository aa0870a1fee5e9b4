#pragma once

#include "runtime/ProgramSocket.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>
#include <utility>

/// A file that one program asks another to open.
struct HandedFile
{
    QString fileName; ///< full path
    QByteArray activationToken; ///< by which the desktop lets the other program come to the front; may be empty

    /// What programs send each other.
    QByteArray message() const;
    /// `std::nullopt` if it is not such a message.
    static std::optional<HandedFile> fromMessage(const QByteArray &message);
};

/// What the other program answers.
namespace HandOverAnswer {

inline constexpr QByteArrayView Later = "later"; ///< once the user has answered a dialog, or a file has been saved
inline constexpr QByteArrayView Opened = "opened"; ///< the file is the other program's from now on

} // namespace HandOverAnswer

/// The name under which programs meet that one user started in the same way: from one installation, with the same
/// settings and data, on one display, in one language. Empty if this program is to stay by itself.
QByteArray meetingName();

/// At the start of a program: hands its file to one of the same name that runs already.
class HandOver
{
public:
    explicit HandOver(QByteArray name) : m_name(std::move(name)) { }

    /// How long the other program may say nothing, and how long its start may take.
    void setPatience(std::chrono::milliseconds silence, std::chrono::milliseconds start);

    /// Returns whether another program opens the file, so that there is nothing left to do for this one. Otherwise this
    /// program has the name now, unless another one has it. A name that leads to no file is not handed over: it might
    /// lead to one from where the other program was started.
    bool give(const QString &fileName);

    const QByteArray &name() const { return m_name; }
    /// The socket of the name; none if another program has it.
    ProgramSocket takeSocket() { return std::exchange(m_socket, {}); }

private:
    bool takeName();
    bool giveTo(const ProgramSocket &other, const HandedFile &file) const;

    QByteArray m_name;
    ProgramSocket m_socket;
    std::chrono::milliseconds m_silence = std::chrono::seconds(10);
    std::chrono::milliseconds m_start = std::chrono::seconds(30);
};
