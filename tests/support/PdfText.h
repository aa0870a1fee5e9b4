#pragma once

#include <QImage>
#include <QList>
#include <QRectF>
#include <QString>
#include <QStringList>

/// A word of a page, with its place in points from the page's top left corner.
struct PdfWord
{
    QString text;
    QRectF box;
};

/// A page of a PDF file as a reader sees it.
struct PdfPage
{
    QSizeF size; ///< points
    QList<PdfWord> words;

    QStringList texts() const;
    int count(const QString &text) const;
    /// The first word of that text; throws when the page has none.
    PdfWord word(const QString &text) const;
    /// The lines from top to bottom: the words that stand side by side, from left to right, joined by blanks.
    QStringList lines() const;
};

/// Reads a PDF file back with poppler's pdftotext; throws, with its message, when that fails.
QList<PdfPage> readPdf(const QString &fileName);

/// A picture of a page (from 1), made by poppler's pdftoppm.
QImage renderPdfPage(const QString &fileName, int page, int dotsPerInch);
