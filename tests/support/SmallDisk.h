#pragma once

#include <QtGlobal>

#include <memory>

/// Lets no file of this process grow beyond a size while it lives, as a full disk does.
class SmallDisk
{
public:
    /// Whether the system can do that. Windows cannot.
    static bool isPossible();

    explicit SmallDisk(quint64 bytes);
    ~SmallDisk();
    Q_DISABLE_COPY_MOVE(SmallDisk)

private:
    struct Former;

    std::unique_ptr<Former> m_former;
};
