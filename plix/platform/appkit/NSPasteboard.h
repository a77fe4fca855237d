#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/ObjectValue.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

// Types of what is on a pasteboard.
inline constexpr char const* NSStringPboardType = "NSStringPboardType";
inline constexpr char const* NSFilenamesPboardType = "NSFilenamesPboardType";
inline constexpr char const* NSColorPboardType = "NSColor pasteboard type";
inline constexpr char const* NSTIFFPboardType = "NeXT TIFF v4.0 pasteboard type";
inline constexpr char const* NSTabularTextPboardType = "NeXT tabular text pasteboard type";
inline constexpr char const* NSURLPboardType = "Apple URL pasteboard type";
inline constexpr char const* NSRTFPboardType = "NeXT Rich Text Format v1.0 pasteboard type";

// Names of pasteboards: the clipboard, what was searched for, what is dragged.
inline constexpr char const* NSGeneralPboard = "Apple CFPasteboard general";
inline constexpr char const* NSFindPboard = "Apple CFPasteboard find";
inline constexpr char const* NSDragPboard = "Apple CFPasteboard drag";

/// What copy, paste and drag carry, by type, the best type first. The general one's text goes to other applications and comes from
/// them; other types stay within the application.
class PLIX_EXPORT NSPasteboard : public NSObject {
    PLIX_CLASS(NSPasteboard, NSObject);

public:
    // One for each name, the first the machine's clipboard.
    static NSPasteboard& generalPasteboard() { return pasteboardWithName(NSGeneralPboard); }
    static NSPasteboard& pasteboardWithName(std::string_view);
    static Ref<NSPasteboard> pasteboardWithUniqueName();

    /// The name that it was asked for by.
    std::string const& name() const { return m_name; }
    /// Grows each time that anybody takes the pasteboard over.
    long changeCount() const;

    /// Gives the data of a type when it is asked for. May answer nil.
    using Provider = std::function<ObjectValue(std::string const& type)>;
    /// Empties the pasteboard and says what it will hold. A provider is asked for types that have not been set; without one they
    /// are nil. Answers the new change count.
    long declareTypes(std::vector<std::string> types, Provider = {});
    long addTypes(std::vector<std::string> const& types, Provider = {});
    std::vector<std::string> types() const;
    /// The first of these that the pasteboard holds.
    std::optional<std::string> availableTypeFromArray(std::vector<std::string> const&) const;

    /// False for a type that was not declared.
    bool setString(std::string_view, std::string_view forType);
    bool setData(Ref<NSData> const&, std::string_view forType);
    bool setPropertyList(ObjectValue, std::string_view forType);
    std::optional<std::string> stringForType(std::string_view type) const;
    Ref<NSData> dataForType(std::string_view type) const;
    ObjectValue propertyListForType(std::string_view type) const;

private:
    bool isGeneral() const;
    void takeForeignText() const;
    ObjectValue value(std::string_view type) const;

    std::string m_name;
    mutable long m_changeCount { 0 };
    mutable long m_hostChangeCount { -1 };
    mutable std::vector<std::string> m_types;
    mutable std::map<std::string, ObjectValue, std::less<>> m_values;
    mutable Provider m_provider;
};

}
