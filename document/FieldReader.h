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
    FieldReader(QByteArrayView bytes, const AnsiCodePage &page) : m_size(bytes.size()), m_rest(bytes), m_page(page) { }

    /// Passes whole lines up to the first one that equals line; false when there is none, with all passed.
    bool passLine(QByteArrayView line);

    bool atEnd() const { return m_rest.isEmpty(); }
    qsizetype remaining() const { return m_rest.size(); }
    qsizetype position() const { return m_size - m_rest.size(); } ///< bytes passed

    /// Whether a comma or a line end follows the field read last. Without one the bytes may have been cut inside it.
    bool fieldHasEnd() const { return m_fieldHasEnd; }

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

    bool isPastEnd();
    bool take(char byte);
    void takeBlanks();
    void takeSeparator();
    Field takePlainText();
    QByteArrayView takeQuotedText();
    QString decoded(const Field &field);
    double number();

    qsizetype m_size;
    QByteArrayView m_rest;
    bool m_fieldHasEnd = true;
    const AnsiCodePage &m_page;
    TextPool m_pool;
    std::optional<RunTimeError> m_error;
};
