#pragma once

#include "document/Document.h"

#include <optional>

struct RowFields;

/// Makes record what the collected fields say. Texts that it has already keep their storage.
void takeFields(const RowFields &fields, PrRecord &record);

/// The document as it would be saved after nothing but an open: its rows as the grid shows them and as they are
/// collected from there. std::nullopt if a row cannot be collected, which ends a save too.
std::optional<Document> savedForm(const Document &document);

/// The same for one row.
std::optional<PrRecord> savedForm(const PrRecord &record);
