#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/base/export.h>

#include <cstddef>
#include <memory>

namespace plix {

class NSAttributedString;
class NSTextFieldCell;

/// What the text of selected rows looks like: white, with the shadow, and on newer systems bold. Kept for plain texts, so that
/// drawing a row again makes nothing; the least recently used goes.
class PLIX_EXPORT SelectedTexts {
public:
    SelectedTexts();
    ~SelectedTexts();

    /// The cell's value as it is drawn in a selected row; null where it is empty.
    Ref<NSAttributedString> textOf(NSTextFieldCell const&);
    std::size_t count() const;
    /// Of at most so many texts, 64 at first.
    void keepAtMost(std::size_t count);

private:
    struct Entries;

    std::unique_ptr<Entries> m_entries;
    std::size_t m_largestCount { 64 };
};

}
