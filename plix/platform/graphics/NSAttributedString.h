#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/NSRange.h>
#include <plix/platform/graphics/attribute_names.h>
#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/utf16_index.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

class NSMutableAttributedString;

/// Text whose characters carry attributes. Positions and lengths count UTF-16 units; a range that cuts a character in two is taken
/// from the character's start. Bytes that are no UTF-8 become U+FFFD when they come in. Neighbours with equal attributes are one
/// run. Positions outside raise NSRangeException.
class PLIX_EXPORT NSAttributedString : public NSObject {
    PLIX_CLASS(NSAttributedString, NSObject);

public:
    /// Some characters that share their attributes. Runs may share one dictionary.
    struct Run {
        long length { 0 };
        std::shared_ptr<Attributes const> attributes;
    };

    bool init();
    bool init(std::string_view text);
    bool init(std::string_view text, Attributes const&);
    bool init(NSAttributedString const&);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    /// One that can be changed, with the same text and attributes.
    Ref<NSMutableAttributedString> mutableCopy() const;

    /// Valid UTF-8.
    std::string const& string() const { return m_text; }
    long length() const;

    /// The attributes of the character, and the run that has them.
    Attributes const& attributesAtIndex(long index) const;
    Attributes const& attributesAtIndex(long index, NSRange& effectiveRange) const;
    /// Clipped to a range.
    Attributes const& attributesAtIndex(long index, NSRange& longestEffectiveRange, NSRange inRange) const;
    /// Nil where the character has no such attribute; the range is the run's.
    ObjectValue attribute(std::string_view name, long atIndex) const;
    ObjectValue attribute(std::string_view name, long atIndex, NSRange& effectiveRange) const;
    /// The range in which this attribute has this value, whatever the others do.
    ObjectValue attribute(std::string_view name, long atIndex, NSRange& longestEffectiveRange, NSRange inRange) const;

    // Parts and comparison; ranges are in UTF-16 units.
    Ref<NSAttributedString> attributedSubstringFromRange(NSRange) const;
    bool isEqualToAttributedString(NSAttributedString const&) const;
    bool containsAttachments() const;

    /// The characters' extent when they are laid out as wide as they want to be; see string_drawing.h.
    Size size() const;
    /// Draws in the current context; the point is the extent's upper left corner in a flipped context, else the lower left.
    void drawAtPoint(Point) const;
    /// Draws from the rectangle's top downwards, wrapped or truncated to its width as the paragraph styles say. Lines for which
    /// there is no room any more are left out, the first excepted.
    void drawInRect(Rect) const;

    /// All runs in order; their lengths add up to length().
    std::vector<Run> const& runs() const { return m_runs; }
    Utf16Index& positions() const { return m_positions; }

    // NSObject:
    bool isEqual(NSObject const* other) const override;
    std::size_t hash() const override;
    std::string description() const override;

protected:
    void copyStateTo(NSObject& fresh) const override;

    /// The run that holds the index, and where it starts.
    std::size_t runAt(long index, long& start) const;
    void checkIndex(char const* operation, long index) const;
    void checkRange(char const* operation, NSRange) const;

    std::string m_text;
    std::vector<Run> m_runs;
    mutable Utf16Index m_positions;
};

/// A new attributed string that is one attachment.
PLIX_EXPORT Ref<NSAttributedString> attributedStringWithAttachment(Ref<NSObject> const& attachment);

}
