#pragma once

#include <plix/platform/base/export.h>

namespace plix {

class NSTableColumn;

// For columns of tables and outlines of any class.

/// How wide the column is to be for its widest value: every row's is asked for and measured in the data cell, whose own value is
/// put back afterwards. minWidth() for a column without table, or in one without data source.
PLIX_EXPORT float dataWidth(NSTableColumn&);
/// Makes the column as wide as that, within its least and greatest width.
PLIX_EXPORT void sizeToFitData(NSTableColumn&);

}
