#include <plix/inspector/view_facts.h>

#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/NSFont.h>

#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <typeinfo>

namespace plix {

namespace {

std::string nameOfType(std::type_info const& type)
{
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> const readable(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), [](void* text) { std::free(text); });
    return shortTypeName(readable ? readable.get() : type.name());
}

// The control is not asked: it would take in what is being edited.
std::string titleOf(NSView const& view)
{
    if (auto const* const button = dynamic_cast<NSButton const*>(&view))
        return button->title();
    if (auto const* const box = dynamic_cast<NSBox const*>(&view))
        return box->title();
    auto const* const control = dynamic_cast<NSControl const*>(&view);
    auto const* const cell = control ? control->cell() : nullptr;
    return cell && cell->type() == NSTextCellType ? cell->stringValue() : "";
}

ViewNode nodeWithoutChildren(NSView const& view)
{
    return { view.serialNumber(), classNameOf(view), titleOf(view), view.frame(), view.isHidden(), {} };
}

bool hasKeyboard(NSView const& view)
{
    return view.window() && view.window()->firstResponder() == &view;
}

CellFacts cellFactsOf(NSCell const& cell)
{
    CellFacts facts { classNameOf(cell), cell.stringValue(), cell.state(), {}, 0 };
    if (auto const* const font = cell.font()) {
        facts.fontName = font->fontName();
        facts.fontSize = font->pointSize();
    }
    return facts;
}

}

std::string classNameOf(NSObject const& object)
{
    auto const& described = object.describedClass();
    return described.type() == typeid(object) ? described.name() : nameOfType(typeid(object)) + " (" + described.name() + ")";
}

ViewNode viewNodeOf(NSView const& view)
{
    auto node = nodeWithoutChildren(view);
    node.children.reserve(view.subviews().size());
    for (auto const& subview : view.subviews())
        node.children.push_back(viewNodeOf(*subview));
    return node;
}

ViewFacts viewFactsOf(NSView const& view)
{
    ViewFacts facts { classNameOf(view), view.frame(), view.bounds(), rectInContent(view), view.isHidden(), view.isFlipped(),
        view.isOpaque(), {}, hasKeyboard(view), view.tag(), view.toolTip(), view.autoresizingMask(), {}, {} };
    if (auto const* const next = view.nextKeyView())
        facts.nextKeyView = nodeTitle(nodeWithoutChildren(*next));
    if (auto const* const control = dynamic_cast<NSControl const*>(&view)) {
        facts.isEnabled = control->isEnabled();
        if (auto const* const cell = control->cell())
            facts.cell = cellFactsOf(*cell);
    }
    return facts;
}

NSView* viewWithSerialNumber(NSView& top, std::uint64_t number)
{
    if (top.serialNumber() == number)
        return &top;
    for (auto const& subview : top.subviews()) {
        if (auto* const found = viewWithSerialNumber(*subview, number))
            return found;
    }
    return nullptr;
}

Rect rectInContent(NSView const& view)
{
    if (!view.window())
        return {};
    Point const offset = view.window()->internals().contentOffset();
    return NSOffsetRect(view.convertRectToView(view.bounds(), nullptr), -offset.x, -offset.y);
}

void addFrames(NSView const& view, Rect clip, std::vector<OverlayShape>& shapes)
{
    if (view.isHidden())
        return;
    Rect const rect = rectInContent(view);
    Rect const seen = NSIntersectionRect(rect, clip);
    if (seen.isEmpty())
        return;
    shapes.push_back({ OverlayRole::frame, rect, seen });
    for (auto const& subview : view.subviews())
        addFrames(*subview, seen, shapes);
}

}
