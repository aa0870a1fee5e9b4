#include "app/ChangeMarks.h"

#include "app/DocumentFlows.h"
#include "desktop/Picture.h"
#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"

ChangeMarks::ChangeMarks(DocumentFlows &documents) : m_documents(documents)
{
    connect(&documents, &DocumentFlows::editorCreated, this, &ChangeMarks::show);
    ChangedFlag::setObserver([this] { show(); });
}

ChangeMarks::~ChangeMarks()
{
    ChangedFlag::setObserver({});
}

void ChangeMarks::show() const
{
    static const QIcon saved = Picture::programIcon();
    static const QIcon changed = Picture::changedIcon();
    for (const frmPrFile *editor : m_documents.openEditors()) {
        const QIcon &icon = DocFlags[editor->docNo()].changed ? changed : saved;
        if (editor->parentWidget()->windowIcon().cacheKey() != icon.cacheKey()) {
            editor->parentWidget()->setWindowIcon(icon);
        }
    }
}
