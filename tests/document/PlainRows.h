#pragma once

#include "tests/document/RandomDocument.h"

#include <QByteArrayList>

/// Rows of a kind that is common, so that most are plain, with much that can be wrong in their content.
class PlainRows
{
public:
    explicit PlainRows(quint32 seed) : m_random(seed, seed % 2 == 0) { }

    /// Each with its end.
    QByteArrayList rows(int count);
    /// The file of these rows.
    static QByteArray fileOf(const QByteArrayList &rows);
    /// Up to three bytes exchanged for others that mean something in such a file.
    QByteArray damaged(QByteArray bytes);
    /// 0 to last.
    int number(int last) { return m_random.number(last); }

private:
    QByteArray oneOf(std::initializer_list<QByteArray> texts) { return texts.begin()[number(int(texts.size()) - 1)]; }
    QByteArray value();
    QByteArray ranges(int count);
    QByteArray conditions(int count);
    QByteArray row(int index);

    RandomDocument m_random;
};
