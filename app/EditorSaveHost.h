#pragma once

#include "document/SaveHost.h"

class EditorFrame;
class frmPrFile;

/// The desktop for saving one editor's document: questions name the cells of its grid and lead to them.
class EditorSaveHost : public SaveHost
{
public:
    EditorSaveHost(FileHost &host, EditorFrame &frame, frmPrFile &editor)
        : m_host(host), m_frame(frame), m_editor(editor)
    {
    }

    void showMessage(const QString &text) override { m_host.showMessage(text); }
    void showFailure(const Failure &failure, const QString &title) override { m_host.showFailure(failure, title); }
    bool askYesNo(const QString &question, const QString &title) override;
    bool askToReplace(const Failure &obstacle, const QString &title) override;
    bool askToWrite(const QList<ReadBackFinding> &findings, const QString &title) override;
    void showCell(const CellPosition &cell) override;
    void setBusy(bool busy) override { m_host.setBusy(busy); }
    void runPendingEvents() override { m_host.runPendingEvents(); }

    /// Whether the user answered No to a question.
    bool isDeclined() const { return m_isDeclined; }

private:
    QString line(const ReadBackFinding &finding) const;

    FileHost &m_host;
    EditorFrame &m_frame;
    frmPrFile &m_editor;
    bool m_isDeclined = false;
};
