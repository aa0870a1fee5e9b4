#pragma once

#include <QJsonObject>
#include <QProcess>
#include <QStringList>

#include <functional>
#include <memory>

class QRasterWindow;

/// A modal window that a program shows.
struct DayBox
{
    QString kind; ///< "message", "file" or a class's name
    QString title;
    QString text;
    QStringList buttons;
    QString preset; ///< the button that Enter takes
};

/// A program of the day, seen from the test. Everything throws std::runtime_error when the program does not answer.
class DayPeer
{
public:
    /// The button, the file name or "Escape".
    using Answers = std::function<QString(const DayBox &box)>;

    DayPeer();
    ~DayPeer();
    Q_DISABLE_COPY_MOVE(DayPeer)

    /// A window manager may still be starting itself.
    static void awaitWindowManager();
    /// Starts the program.
    void start();
    /// Lets it carry a command out; answers is asked for every modal window on the way. What it shows afterwards; empty
    /// when the program has ended.
    QJsonObject act(const QJsonObject &command, const Answers &answers);
    /// Sends a command and does not wait.
    void send(const QJsonObject &command);
    void kill();
    /// Brings its frame to the front by way of the window manager, and back if it is minimised.
    void bringToFront();

private:
    QJsonObject heard();
    /// By way of the window manager.
    static void activate(const QString &window);
    static void await(const char *what, const std::function<bool()> &condition);
    void awaitEnd();

    std::unique_ptr<QRasterWindow> m_desk; ///< somebody else who can have the focus
    std::unique_ptr<QProcess> m_process;
    QString m_window; ///< of the window system
};
