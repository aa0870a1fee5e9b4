// bench_bare_core: what a program on Qt Core takes that does nothing but write its version.

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral("1.0"));
    std::printf("%s\n", qPrintable(QCoreApplication::applicationVersion()));
    return 0;
}
