#pragma once

#include <QByteArray>

#include <limits>
#include <random>

/// Parameter files that look like a drive's, as bytes of code page 1252; the same seed gives the same file.
class DocumentGenerator
{
public:
    /// nameLength: the characters of the first longNames names at least.
    explicit DocumentGenerator(quint32 seed, int nameLength = 0, int longNames = std::numeric_limits<int>::max())
        : m_random(seed), m_nameLength(nameLength), m_longNames(longNames)
    {
    }

    QByteArray file(int rows);
    /// Writes such a file; ends the program when it cannot.
    void write(int rows, const QString &fileName);

private:
    int number(int last);
    bool chance(int percent) { return number(99) < percent; }
    template <size_t size>
    const char *oneOf(const char *const (&texts)[size]);
    QByteArray name();
    QByteArray ranges(int count);
    QByteArray conditions(int count);
    QByteArray row(int index);

    std::mt19937 m_random;
    int m_nameLength;
    int m_longNames; ///< still to come
};
