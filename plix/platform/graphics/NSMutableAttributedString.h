#pragma once

#include <plix/platform/graphics/NSAttributedString.h>

namespace plix {

/// An attributed string that can be edited. Text that comes in without attributes takes those of the character it replaces, else
/// of the one before it, else of the one behind it.
class PLIX_EXPORT NSMutableAttributedString : public NSAttributedString {
    PLIX_CLASS(NSMutableAttributedString, NSAttributedString);

public:
    using NSAttributedString::init;

    // Changing text; ranges are in UTF-16 units, and new text has the attributes of what it replaces.
    void replaceCharactersInRange(NSRange, std::string_view text);
    void replaceCharactersInRange(NSRange, NSAttributedString const&);
    void deleteCharactersInRange(NSRange);
    void insertAttributedString(NSAttributedString const&, long atIndex);
    void appendAttributedString(NSAttributedString const&);
    void setAttributedString(NSAttributedString const&);

    // Changing attributes.
    void setAttributes(Attributes const&, NSRange);
    void addAttribute(std::string_view name, ObjectValue const& value, NSRange);
    void addAttributes(Attributes const&, NSRange);
    void removeAttribute(std::string_view name, NSRange);

    /// Between the two, what the subclass makes of edits may wait.
    virtual void beginEditing() { }
    virtual void endEditing() { }

protected:
    enum EditedMask : unsigned { editedAttributes = 1, editedCharacters = 2 };
    /// Told after each change: the range as it is now, and how much longer the text has become.
    virtual void didEdit(unsigned /*mask*/, NSRange, long /*changeInLength*/) { }

private:
    void replaceTextAndRuns(NSRange, std::string_view text, std::vector<Run> runs);
    template <typename Change> void changeAttributes(char const* operation, NSRange, Change const&);
    std::size_t splitRunsAt(long index);
    void joinRuns(std::size_t from, std::size_t to);
    NSRange characterRange(char const* operation, NSRange) const;
};

}
