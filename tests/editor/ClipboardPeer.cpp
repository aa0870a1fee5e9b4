// Another program at the clipboard. "set FILE" offers the file's text until the program is ended, "get" prints the text
// that is there, in UTF-8.

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void print(const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.value(1) == "get"_L1) {
        print(QGuiApplication::clipboard()->text().toUtf8());
        return 0;
    }
    QFile file(arguments.value(2));
    if (arguments.value(1) != "set"_L1 || !file.open(QIODevice::ReadOnly)) {
        return 2;
    }
    QGuiApplication::clipboard()->setText(QString::fromUtf8(file.readAll()));
    QGuiApplication::processEvents();
    print("ready\n");
    return QGuiApplication::exec();
}
