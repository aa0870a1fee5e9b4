#pragma once

#include <QByteArray>
#include <QHash>
#include <QHelpEngine>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

/// One help file: its pages, its contents tree and index, and the texts that the help window shows around them.
class HelpLibrary
{
public:
    /// Opens a help file of any name. Nothing is returned when it is missing, is no help file or has no start page.
    static std::unique_ptr<HelpLibrary> open(const QString &helpFile);

    ~HelpLibrary();
    Q_DISABLE_COPY_MOVE(HelpLibrary)

    const QString &helpFile() const { return m_helpFile; }
    QHelpEngine &engine() { return m_engine; }

    /// The page of a context number, with its place in the page; the start page when nothing has that number.
    QUrl topic(int contextId) const;
    /// The bytes of a page, picture or style sheet; empty when the file has none of that address.
    QByteArray data(const QUrl &address) const { return m_engine.fileData(address); }
    /// The addresses of all pages.
    QList<QUrl> pages() const;
    /// A text of the window in the language of the help file ("back", "find" ...); empty when the file has none.
    QString label(const QString &key) const { return m_labels.value(key); }

private:
    explicit HelpLibrary(const QString &helpFile);

    bool isComplete() const;
    QUrl pageOfContext(int contextId) const;
    void readLabels();

    QTemporaryDir m_folder; // the contents tree and the index are filled by threads that open the collection again
    QString m_helpFile;
    QString m_namespace;
    QHelpEngine m_engine;
    QHash<QString, QString> m_labels;
};
