#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>

#include <vector>

namespace plix {

class NSLayoutManager;

/// Editable text that keeps layout managers informed. It holds them; they do not hold it.
class PLIX_EXPORT NSTextStorage : public NSMutableAttributedString {
    PLIX_CLASS(NSTextStorage, NSMutableAttributedString);

public:
    using NSMutableAttributedString::init;
    ~NSTextStorage() override;

    // Those that lay it out. It holds them.
    void addLayoutManager(Ref<NSLayoutManager> const&);
    void removeLayoutManager(NSLayoutManager&);
    std::vector<Ref<NSLayoutManager>> const& layoutManagers() const { return m_layoutManagers; }

    // NSMutableAttributedString:
    void beginEditing() override;
    void endEditing() override;

protected:
    void didEdit(unsigned mask, NSRange, long changeInLength) override;

private:
    void tellLayoutManagers();

    std::vector<Ref<NSLayoutManager>> m_layoutManagers;
    int m_editingDepth { 0 };
    bool m_hasEdits { false };
    NSRange m_editedRange;
    long m_changeInLength { 0 };
};

}
