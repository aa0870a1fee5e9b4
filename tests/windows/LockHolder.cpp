#include "runtime/ProcessLock.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QThread>

/// Takes the lock that it is told of, says so, and holds it until it is killed.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    ProcessLock lock(QCoreApplication::arguments().value(1));
    QTextStream(stdout) << (lock.lock() ? "held\n" : "refused\n");
    QThread::sleep(600);
    return 0;
}
