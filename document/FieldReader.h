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

    /// Begins a row: its fields count from here.
    void beginRow() { m_fieldNo = 0; }
    int fieldNo() const { return m_fieldNo; } ///< of the field read last, in its row, from 1
    qsizetype fieldAt() const { return m_fieldAt; } ///< the byte that it begins with

    /// Records a failure that the caller found, unless there was one before. It counts as the last field's.
    void fail(RunTimeError error);
    std::optional<RunTimeError> error() const { return m_error; }

    /// The bytes met so far that the page could not decode.
    qsizetype undecoded() const { return m_undecoded; }

private:
    struct Field
    {
        QByteArrayView bytes;
        bool ascii;
    };

    bool beginField();
    bool take(char byte);
    void takeBlanks();
    void takeSeparator();
    Field takePlainText();
    QByteArrayView takeQuotedText();
    QString decoded(const Field &field);
    double number();

    qsizetype m_size;
    QByteArrayView m_rest;
    qsizetype m_fieldAt = 0;
    qsizetype m_undecoded = 0;
    int m_fieldNo = 0;
    bool m_fieldHasEnd = true;
    const AnsiCodePage &m_page;
    TextPool m_pool;
    std::optional<RunTimeError> m_error;
};
