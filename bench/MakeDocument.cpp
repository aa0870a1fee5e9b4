// make_document ROWS FILE [SEED]: writes a parameter file of any size.

#include "bench/DocumentGenerator.h"

#include <QString>

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv)
{
    const int rows = argc > 2 ? std::atoi(argv[1]) : 0;
    if (rows < 1) {
        std::fprintf(stderr, "make_document ROWS FILE [SEED]\n");
        return 2;
    }
    const auto seed = static_cast<quint32>(argc > 3 ? std::atoi(argv[3]) : 1);
    DocumentGenerator(seed).write(rows, QString::fromLocal8Bit(argv[2]));
    return 0;
}
