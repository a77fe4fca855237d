#pragma once

#include <plix/platform/base/NSDate.h>
#include <plix/platform/base/export.h>

namespace plix {

/// What a view must be besides a view to serve the date range panel as a field for a date. A plug-in's class derives from this
/// and from NSView; the panel finds it by dynamic_cast. An entry is made with init() and is given its frame afterwards.
class PLIX_EXPORT DateEntry {
public:
    /// Whether a button that opens a calendar stands in the field.
    virtual void setShowsDatePickerButton(bool) = 0;
    virtual void setDateValue(NSDate) = 0;
    /// What was taken over from the person or set last.
    virtual NSDate dateValue() const = 0;

protected:
    DateEntry() = default;
    DateEntry(DateEntry const&) = default;
    DateEntry& operator=(DateEntry const&) = default;
    ~DateEntry() = default;
};

}
