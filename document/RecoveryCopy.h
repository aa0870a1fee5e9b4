#pragma once

#include "document/MachineInfo.h"
#include "document/ParameterColumn.h"
#include "document/PrGrid.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// The cells of a document that is to be kept, and which of them were changed.
class RecoveryGrid : public PrGrid
{
public:
    virtual bool isCellChanged(int column, int row) const = 0;
};

/// What a recovery copy is made from.
struct RecoverySource
{
    QString fileName; ///< as the window names it; empty for an untitled document
    const MachineInfo &info;
    const RecoveryGrid &grid;
    int codePage; ///< that the document is written in
};

/// One row of a kept document.
struct RecoveredRow
{
    QStringList texts; ///< by column, from column 1 on
    quint32 changedColumns = 0; ///< bit n is column n

    bool operator==(const RecoveredRow &) const = default;
};

/// A document as it was when it was last kept. The texts are those of its cells, not those of a file: also what no
/// file can hold comes back.
struct RecoveryCopy
{
    QString fileName; ///< as the window named it; empty for an untitled document
    MachineInfo info;
    QList<RecoveredRow> rows;
    int codePage = 0; ///< that the document is written in; a copy that does not say has the system's

    bool operator==(const RecoveryCopy &) const = default;
};

/// The bytes that unpackRecoveryCopy() reads back.
QByteArray packRecoveryCopy(const RecoverySource &source);

/// The sum by which packed copies are told apart.
QByteArray recoverySum(const QByteArray &bytes);

/// `std::nullopt` if the bytes are damaged, cut off or of another kind.
std::optional<RecoveryCopy> unpackRecoveryCopy(const QByteArray &bytes);
