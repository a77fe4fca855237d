#pragma once

#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/base/ObjectValue.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

class NSAttributedString;

/// An image view that shows a default image while it has none: a dashed, rounded border with a caption, or an image of the host's.
/// Scaled in proportion, its image becomes smaller where that is needed, never larger, and lies on whole points.
class PLIX_EXPORT PLIXImageView : public NSImageView {
    PLIX_CLASS(PLIXImageView, NSImageView);

public:
    PLIXImageView();
    ~PLIXImageView() override;
    bool init();
    bool init(Rect frame);
    /// What is of the default image is not archived.
    bool init(NSCoder&);

    /// False at first.
    void setDrawsDefaultImage(bool draws);
    void setDefaultImage(Ref<NSImage> const&);
    /// The host's image; where there is none a new one each time, as large as the view: the border, and the caption where one is
    /// set.
    virtual Ref<NSImage> defaultImage();
    /// The caption; nil for none.
    void setDefaultImageString(std::optional<std::string_view>);
    std::optional<std::string> const& defaultImageString() const { return m_defaultImageString; }
    /// A caption with a look of its own, which wins over the plain one. What is no attributed string clears it.
    void setDefaultImageAttributedString(ObjectValue const&);
    NSAttributedString* defaultImageAttributedString() const;
    /// A new image each time, as large as the view.
    virtual Ref<NSImage> defaultImageBorder();

    // NSView:
    void drawRect(Rect) override;

private:
    Ref<NSAttributedString> caption() const;
    void drawContent(Rect dirty);

    Ref<NSImage> m_defaultImage;
    std::optional<std::string> m_defaultImageString;
    Ref<NSAttributedString> m_defaultImageAttributedString;
    bool m_drawsDefaultImage { false };
};

}
