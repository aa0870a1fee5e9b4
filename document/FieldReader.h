#pragma once

#include "document/TextPool.h"
#include "runtime/RunTimeError.h"

#include <QByteArrayView>
#include <QString>

#include <optional>

class AnsiCodePage;

/// Reads a parameter file's fields one after the other. The first failure stays: later reads then give empty values, so
/// that a caller may look at error() once per row or loop.
///
/// The bytes themselves are cut into fields: no code page uses comma, quote, blank or line end inside a character.
class FieldReader
{
public:
    FieldReader(QByteArrayView bytes, const AnsiCodePage &page) : m_rest(bytes), m_page(page) { }

    /// Passes whole lines up to the first one that equals line; false when there is none, with all passed.
    bool passLine(QByteArrayView line);

    bool atEnd() const { return m_rest.isEmpty(); }
    qsizetype remaining() const { return m_rest.size(); }

    QString text();
    qint16 int16();
    quint8 byte();
    float single();

    /// Records a failure that the caller found, unless there was one before.
    void fail(RunTimeError error);
    std::optional<RunTimeError> error() const { return m_error; }

private:
    struct Field
    {
        QByteArrayView bytes;
        bool ascii;
    };

    bool take(char byte);
    void takeBlanks();
    void takeSeparator();
    Field takePlainText();
    QByteArrayView takeQuotedText();
    QString decoded(const Field &field);
    double number();

    QByteArrayView m_rest;
    const AnsiCodePage &m_page;
    TextPool m_pool;
    std::optional<RunTimeError> m_error;
};
