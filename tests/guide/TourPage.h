#pragma once

#include <QString>
#include <QStringList>

/// A page of the guide that leads through the program, as its source has it: what it names, section by section.
class TourPage
{
public:
    /// language: "en" or "ja". page: the file's name.
    TourPage(const QString &language, const QString &page);

    /// The sections under numbered headings; 0 if the page cannot be read.
    int sections() const { return int(m_sections.size()); }
    /// The captions, keys and pictures of buttons that a section names, each once and sorted. section: from 1.
    QStringList named(int section) const;
    /// Its text without marks. section: from 1.
    QString text(int section) const;

private:
    QStringList m_sections; ///< their sources
};
