#pragma once

#include <QByteArray>
#include <QString>

/// Disks with faults, and rights that bind: for root, permission bits mean nothing.
namespace FaultyDisk {

/// To be called first in main, while the process has one thread: mounts the disks below where the system allows that,
/// with that content of the read-only disk's file, and gives up every privilege. What is mounted is seen by this
/// process only.
void setUp(const QByteArray &readOnlyContent);

/// A disk of 64 kilobytes; empty where the system does not let tests mount any.
QString smallDisk();

/// Fills the small disk to its last page, for as long as this object lives.
class Filling
{
public:
    Filling();
    ~Filling();
    Q_DISABLE_COPY_MOVE(Filling)
};

/// Lets no file of this process grow beyond that many bytes, for as long as this object lives.
class SizeLimit
{
public:
    explicit SizeLimit(quint64 bytes);
    ~SizeLimit();
    Q_DISABLE_COPY_MOVE(SizeLimit)

private:
    quint64 m_before;
};

/// A disk that holds the file "a.inv" and takes no change; empty as above.
QString readOnlyDisk();

} // namespace FaultyDisk
