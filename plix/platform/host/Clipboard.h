#pragma once

#include <plix/platform/base/export.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

/// The text that copy and paste carry between applications.
class PLIX_EXPORT Clipboard {
public:
    virtual ~Clipboard() = default;
    /// nil where there is none, or its owner does not answer in time.
    virtual std::optional<std::string> text() = 0;
    virtual void setText(std::string_view) = 0;
    virtual bool hasText() = 0;
    /// Grows each time that anybody sets the clipboard.
    virtual long changeCount() = 0;
};

}
