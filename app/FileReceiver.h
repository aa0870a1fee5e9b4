#pragma once

#include "app/HandOver.h"

#include <QObject>
#include <QTimer>

#include <list>
#include <optional>

class MDIfrmTabrix;
class QSocketNotifier;

/// Opens in the frame what later starts hand over, as long as the frame is shown and events are handled. Not while a
/// dialog or a menu is open or a file is read or saved: the other program waits then, and opens its file itself if this
/// one ends. Of several programs with one name the first receives the files; when it ends, another one does.
class FileReceiver : public QObject
{
    Q_OBJECT

public:
    FileReceiver(HandOver &start, MDIfrmTabrix &frame);
    ~FileReceiver() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A program that has connected.
    struct Visitor
    {
        ProgramSocket socket;
        QSocketNotifier *notifier = nullptr;
        std::optional<HandedFile> file; ///< it waits for this to be opened
    };
    using Visitors = std::list<Visitor>;

    void takeTurn();
    void takeName();
    void watch(void (FileReceiver::*happened)());
    void welcome();
    void noteEnd();
    void hear(Visitors::iterator visitor);
    void openNext();
    bool mayOpen() const;
    void comeToFront(const QByteArray &activationToken);
    void dismiss(Visitors::iterator visitor);
    void end();

    QByteArray m_name;
    ProgramSocket m_socket; ///< of the name, or to the program that has it
    QSocketNotifier *m_notifier = nullptr; ///< of m_socket
    Visitors m_visitors;
    QTimer m_timer; ///< until the next look at whether a file may be opened
    MDIfrmTabrix &m_frame;
};
