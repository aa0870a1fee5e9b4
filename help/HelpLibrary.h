#pragma once

#include <QByteArray>
#include <QHash>
#include <QHelpEngine>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

/// One help file: its pages, contents tree and index, and the labels of the help window.
class HelpLibrary
{
public:
    /// Opens a help file of any name. nullptr if it does not exist, is not a help file or has no start page.
    static std::unique_ptr<HelpLibrary> open(const QString &helpFile);

    ~HelpLibrary();
    Q_DISABLE_COPY_MOVE(HelpLibrary)

    const QString &helpFile() const { return m_helpFile; }
    QHelpEngine &engine() { return m_engine; }

    /// The address of a context number, the position in the page included; the start page if nothing has that number.
    QUrl topic(int contextId) const;
    /// The bytes of a page, picture or style sheet; empty if the file has none of that address.
    QByteArray data(const QUrl &address) const { return m_engine.fileData(address); }
    /// The addresses of all pages.
    QList<QUrl> pages() const;
    /// A label of the window ("back", "find" ...) in the language of the help file; empty if the file has none.
    QString label(const QString &key) const { return m_labels.value(key); }

private:
    explicit HelpLibrary(const QString &helpFile);

    bool isComplete() const;
    QUrl pageOfContext(int contextId) const;
    void readLabels();

    QTemporaryDir m_folder; // on disk, because the threads that fill contents tree and index open the collection again
    QString m_helpFile;
    QString m_namespace;
    QHelpEngine m_engine;
    QHash<QString, QString> m_labels;
};
