#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

class AnsiCodePage;

/// The bytes of a file that is being put together in a code page.
class AnsiBuffer
{
public:
    explicit AnsiBuffer(const AnsiCodePage &page) : m_page(page) { }

    void reserve(qsizetype bytes) { extend(bytes); }
    void put(char ascii);
    void put(QByteArrayView ascii);
    void putText(QStringView text);
    void putInteger(int value);
    void putSingle(float value);
    /// Room for that many bytes, for what is put by other means; advanceTo() says where that ended.
    char *room(qsizetype bytes) { return extend(bytes); }
    void advanceTo(const char *end) { m_used = end - m_bytes.constData(); }

    /// The first character that the code page does not have: itself, its code in hexadecimal digits, the page's number.
    /// `std::nullopt` if there was none.
    std::optional<QStringList> missingCharacter() const;

    qsizetype size() const { return m_used; }
    /// What was put so far, without a copy; valid until the next put.
    QByteArrayView bytes() const { return {m_bytes.constData(), m_used}; }
    /// The same, handed over; nothing is left here.
    QByteArray takeBytes();

private:
    char *extend(qsizetype bytes);

    const AnsiCodePage &m_page;
    QByteArray m_bytes; ///< only the first m_used bytes count
    qsizetype m_used = 0;
    char32_t m_missing = 0;
};
