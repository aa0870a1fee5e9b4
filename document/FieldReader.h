#pragma once

#include "document/TextPool.h"
#include "runtime/Result.h"

#include <QByteArrayView>
#include <QList>
#include <QString>

#include <memory>
#include <optional>

class AnsiCodePage;

/// A field as the file has it: with its quotes and the spaces around it, without its separator.
struct FileField
{
    qsizetype offset; ///< of its first byte, from 0
    QByteArrayView bytes;
};

/// Reads a parameter file's fields one after the other. The first failure stays: later reads then give empty values, so
/// that a caller may ask hasFailed() once per row or loop.
///
/// The bytes themselves are cut into fields: no code page uses comma, quote, space or line end inside a character.
class FieldReader
{
public:
    /// Whether equal texts share their storage, which pays for a file, but not for a single row.
    enum class Storage { Shared, Separate };

    FieldReader(QByteArrayView bytes, const AnsiCodePage &page, Storage storage = Storage::Shared);

    /// Passes whole lines up to the first one that equals line; false when there is none, with all passed.
    bool passLine(QByteArrayView line);

    bool atEnd() const { return m_rest.isEmpty(); }
    qsizetype remaining() const { return m_rest.size(); }
    QByteArrayView rest() const { return m_rest; }
    qsizetype position() const { return m_size - m_rest.size(); } ///< bytes passed

    /// Whether a comma or a line end follows the field read last. Without one the bytes may have been cut inside it.
    bool fieldHasEnd() const { return m_fieldHasEnd; }

    QString text();
    qint16 int16();
    quint8 byte();
    float single();

    /// Appends every field that is read from now on to fields, which must outlive that.
    void setTrace(QList<FileField> *fields) { m_trace = fields; }

    /// Begins the next row: its fields count from here.
    void beginRow();
    /// Passes the next row, which has that many bytes with its end.
    void passRow(qsizetype bytes);
    /// Records a failure that the caller found, unless there was one before. It counts as the last field's.
    void fail(FailureCode code);
    bool hasFailed() const { return m_error.has_value(); }
    /// A failure tells its row and field, and the byte that the field begins with.
    Result<> outcome() const;

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
    void skipSpaces();
    void takeSeparator();
    Field takeUnquotedText();
    QByteArrayView takeQuotedText();
    void traceField();
    template <typename View>
    QString stored(View text);
    QString decoded(const Field &field);
    double number();

    qsizetype m_size;
    QByteArrayView m_rest;
    qsizetype m_fieldAt = 0;
    qsizetype m_undecoded = 0;
    int m_row = 0; ///< from 1; 0 before the first
    int m_fieldNo = 0;
    bool m_fieldHasEnd = true;
    const AnsiCodePage &m_page;
    QList<FileField> *m_trace = nullptr;
    std::unique_ptr<TextPool> m_pool; ///< null: texts are stored separately
    std::optional<FailureCode> m_error;
};
