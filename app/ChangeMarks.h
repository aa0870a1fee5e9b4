#pragma once

#include <QObject>

class DocumentFlows;

/// The icons of the editor windows: whether a document has unsaved changes can be seen by them, also of one that a
/// crash had cut short. They follow the documents' flags at once.
class ChangeMarks : public QObject
{
    Q_OBJECT

public:
    explicit ChangeMarks(DocumentFlows &documents);
    ~ChangeMarks() override;

private:
    void show() const;

    DocumentFlows &m_documents;
};
