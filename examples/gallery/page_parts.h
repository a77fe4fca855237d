#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/geometry.h>

#include <functional>
#include <string_view>

namespace plix {

class NSButton;
class NSImage;
class NSScrollView;
class NSTableColumn;
class NSTableView;
class NSTextField;
class NSView;

}

namespace gallery {

// What pages need beside their subject.

/// As wide as its title wants, at least 80.
plix::Ref<plix::NSButton> pushButton(std::string_view title, std::function<void()> pressed = {});
/// Off at first; says what it is switched to.
plix::Ref<plix::NSButton> checkBox(std::string_view title, std::function<void(bool isOn)> switched = {});
/// Small and pale, on one line.
plix::Ref<plix::NSTextField> hint(std::string_view text);
/// A field of one line, in which a longer text scrolls.
plix::Ref<plix::NSTextField> textField(std::string_view text, float width);
/// The view with a hint below its middle. With a height it stands in the middle of that, for captions on one line.
plix::Ref<plix::NSView> captioned(std::string_view caption, plix::Ref<plix::NSView> const&, float height = 0);
/// How high that place is, or a view that has no hint.
float heightAboveCaption(plix::NSView const&);
/// The view as a picture of itself: it takes neither mouse nor keys.
plix::Ref<plix::NSView> still(plix::Ref<plix::NSView> const&);
/// On a strip of a light ground, for which engraved texts are coloured whatever the appearance.
plix::Ref<plix::NSView> onLightGround(plix::Ref<plix::NSView> const&, float width);
/// With a border, and scrollers where they are needed.
plix::Ref<plix::NSScrollView> scrolled(plix::Ref<plix::NSView> const& document, plix::Size);
plix::Ref<plix::NSTableColumn> addColumn(plix::NSTableView&, std::string_view identifier, std::string_view title, float width);

/// Pictures of 16 points, and larger ones when asked.
enum class Icon { paper, folder, star, note, disc, warning };
plix::Ref<plix::NSImage> icon(Icon, float side = 16);
/// For the header of the column that is sorted by: upwards while ascending.
plix::Ref<plix::NSImage> sortTriangle(bool isAscending);

}
