#pragma once

#include <QString>
#include <QStringList>

#include <utility>

/// A text that leads through the program, as its source has it: what it names, section by section.
class TourPage
{
public:
    /// A page of the guide; its sections are those under headings. language: "en" or "ja". page: the file's name.
    static TourPage ofGuide(const QString &language, const QString &page);
    /// The numbered steps under a heading of README.md.
    static TourPage ofReadme(const QString &heading);

    /// 0 if there is no such page.
    int sections() const { return int(m_sections.size()); }
    /// The captions, keys and pictures of buttons that a section names, each once and sorted. section: from 1.
    QStringList named(int section) const;
    /// Its text without marks. section: from 1.
    QString text(int section) const;

private:
    explicit TourPage(QStringList sections) : m_sections(std::move(sections)) { }

    QStringList m_sections; ///< as HTML
};
