#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/ObjectValue.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

/// Turns values into text for cells, and text back into values. Abstract by meaning: this class itself formats nothing and takes
/// no text.
class PLIX_EXPORT NSFormatter : public NSObject {
    PLIX_CLASS(NSFormatter, NSObject);

public:
    /// The text for a value; nullopt (nil) for a value that this formatter does not take.
    virtual std::optional<std::string> stringForObjectValue(ObjectValue const& value) const;
    /// The text to edit; the same unless a subclass says otherwise.
    virtual std::optional<std::string> editingStringForObjectValue(ObjectValue const& value) const;
    /// The value for a text, which may be nil. False where it is none: then `errorDescription` may say why, in one sentence.
    virtual bool getObjectValue(ObjectValue& value, std::optional<std::string_view> string, std::string& errorDescription) const;
    /// Asked after each key while a person types. False refuses `partialString`; a `newString` that is not empty replaces it then.
    virtual bool isPartialStringValid(std::string_view partialString, std::string& newString, std::string& errorDescription) const;
};

}
