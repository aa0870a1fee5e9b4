#pragma once

#include "tests/support/FrameTest.h"

#include <functional>

/// A running frame with the file "a.inv" open in its folder "work", of two rows and changed, and with empty backups.
class FaultTest : public FrameTest
{
protected:
    FaultTest();
    ~FaultTest() override;
    void SetUp() override;

    QString workFolder() const { return path(QStringLiteral("work")); }
    /// Opens a file and changes its first name by keyboard.
    void openChanged(const QString &file);
    /// Saves by menu under the document's own name; expects one message about it that check approves, and afterwards an
    /// ordinary pointer and a document that is still changed.
    void expectFailingSave(const std::function<bool(const QString &text)> &check);
    void expectFailingSave(const QString &reason);
    /// Saves by menu and dialog under another name, and expects that the file then holds what the window shows.
    void expectSaveElsewhere();
    /// Whether a file below that folder, or a version in the backups, holds the content.
    bool isStillThere(const QByteArray &content) const;
    /// What the backups of a file hold, the newest last.
    QList<QByteArray> versions(const QString &file);

    static inline const QString changedByOthers = QStringLiteral(
        "Another program has changed this file since it was opened or saved here. Replace it all the same?");

    QString file; ///< "a.inv"
    QByteArray earlier = document(2);
    QByteArray changed; ///< what a save has to write
};
