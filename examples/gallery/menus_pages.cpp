#include "menus_pages.h"
#include "Form.h"
#include "page_parts.h"
#include "value_text.h"

#include <plix/platform/appkit/MenuView.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/attribute_names.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

/// What the menu looks like while it is open, with one item under the pointer.
Ref<NSView> picture(Ref<NSMenu> const& menu, long highlighted)
{
    auto const view = make<MenuView>(menu, Ref<NSFont>(), 0.0F);
    auto const size = view->layout().size;
    view->setFrame(rectWith({}, size));
    view->highlight(highlighted, MenuView::Reveal::no);
    return still(view);
}

/// A menu, and that of one of its items as it opens: its first item on a line with that item.
std::vector<Ref<NSView>> besideItem(Ref<NSMenu> const& menu, long index, Ref<NSMenu> const& submenu)
{
    auto const topOf
        = [](Ref<NSMenu> const& of, long item) { return make<MenuView>(of, Ref<NSFont>(), 0.0F)->layout().itemRect(item).y; };
    float const lowered = topOf(menu, index) - topOf(submenu, 0);
    auto const shown = picture(menu, index);
    auto const opened = picture(submenu, 0);
    float const height = std::max(shown->frame().height, lowered + opened->frame().height);
    auto const atTop = [height](Ref<NSView> const& view, float below) {
        auto place = make<NSView>(Rect { 0, 0, view->frame().width, height });
        view->setFrameOrigin({ 0, height - below - view->frame().height });
        place->addSubview(*view);
        return place;
    };
    return { atTop(shown, 0), atTop(opened, lowered) };
}

/// Right-click it for the menu; its items' keys work as well.
class MenuGround : public NSView {
public:
    bool init(Size size, std::string text, Ref<NSMenu> const& menu)
    {
        if (!NSView::init(rectWith({}, size)))
            return false;
        m_text = std::move(text);
        setMenu(menu);
        return true;
    }
    bool isFlipped() const override { return true; }
    void drawRect(Rect) override
    {
        Theme::current().drawFieldBezel(bounds(), FieldShape::square, {}, NSColor::controlBackgroundColor().get());
        auto const text = make<NSAttributedString>(m_text,
            Attributes { { NSFontAttributeName, NSFont::systemFontOfSize(13) },
                { NSForegroundColorAttributeName, NSColor::controlTextColor() } });
        auto const size = text->size();
        text->drawAtPoint({ std::floor(bounds().midX() - size.width / 2), std::floor(bounds().midY() - size.height / 2) });
    }
    bool performKeyEquivalent(NSEvent& event) override { return menu()->performKeyEquivalent(event); }

private:
    std::string m_text;
};

Ref<NSView> makeNSMenuPage()
{
    auto const form = Form::page();
    auto const menu = make<NSMenu>("Format");
    auto const add = [page = form.get()](NSMenu& to, char const* title, char const* key) {
        auto item = to.addItemWithTitle(title, {}, key);
        item->setActionFunction(
            [page](NSObject* sender) { page->setStatus("Chosen: " + static_cast<NSMenuItem*>(sender)->title()); });
        return item;
    };
    add(*menu, "Bold", "b");
    add(*menu, "Italic", "i");
    add(*menu, "Underlined", "U");
    menu->addItem(*NSMenuItem::separatorItem());
    auto const sizes = make<NSMenu>("Size");
    add(*sizes, "Larger", "+");
    add(*sizes, "Smaller", "-");
    auto const exact = make<NSMenu>("Exact Size");
    for (auto const* size : { "9", "12", "18", "24", "36" })
        add(*exact, size, "");
    sizes->addItemWithTitle("Exact Size", {}, "")->setSubmenu(exact);
    menu->addItemWithTitle("Size", {}, "")->setSubmenu(sizes);
    add(*menu, "Remove Format", "r");
    menu->setItemsNeedActions(false);
    form->addRow("Open", besideItem(menu, 4, sizes));
    form->addRow("Try", { make<MenuGround>(Size { 390, 90 }, "Right-click here, or press Ctrl+B, Ctrl+I, Ctrl+Shift+U", menu) });
    form->addNote("Submenus open beside their items; arrow keys and typed letters go through a menu; a long one scrolls.");
    form->addStatus("Nothing has been chosen yet.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSMenuItemPage()
{
    auto const form = Form::page();
    auto const menu = make<NSMenu>("Items");
    menu->setAutoenablesItems(false);
    auto const add = [&](char const* title, char const* key = "") {
        auto item = menu->addItemWithTitle(title, {}, key);
        item->setActionFunction([page = form.get()](NSObject* sender) {
            auto& chosen = *static_cast<NSMenuItem*>(sender);
            chosen.setState(chosen.state() == NSOnState ? NSOffState : NSOnState);
            page->setStatus(chosen.title() + (chosen.state() == NSOnState ? " is checked." : " is not checked."));
        });
        return item;
    };
    add("Checked")->setState(NSOnState);
    add("Mixed")->setState(NSMixedState);
    add("Disabled", "d")->setEnabled(false);
    menu->addItem(*NSMenuItem::separatorItem());
    add("With a picture")->setImage(icon(Icon::star));
    add("Indented")->setIndentationLevel(1);
    add("Twice indented")->setIndentationLevel(2);
    add("Hidden")->setHidden(true);
    auto const styled = add("Styled");
    styled->setAttributedTitle(make<NSAttributedString>("In a style of its own",
        Attributes { { NSFontAttributeName, NSFont::boldSystemFontOfSize(13) },
            { NSForegroundColorAttributeName, NSColor::colorWithCalibratedRed(0.85F, 0.2F, 0.2F, 1) } }));
    auto const keyed = add("With a key", "k");
    keyed->setKeyEquivalentModifierMask(NSControlKeyMask | NSAlternateKeyMask);
    form->addRow("Open", { picture(menu, 4), make<MenuGround>(Size { 140, 80 }, "Right-click here", menu) });
    form->addStatus("Choosing one checks it.");
    form->sizeToRows();
    return form;
}

/// A target says which of its items can be chosen now, each time before a menu opens.
Ref<NSView> makeNSMenuValidationPage()
{
    class Editor : public NSObject, public NSMenuValidation {
    public:
        bool validateMenuItem(NSMenuItem& item) override
        {
            bool const isEmpty = field->stringValue().empty();
            if (item.title() != "Clear")
                item.setTitle(isEmpty ? "Nothing to Turn Round" : "Turn Round “" + field->stringValue() + "”");
            return !isEmpty;
        }
        void turnRound(NSObject*)
        {
            auto const& text = field->stringValue();
            field->setStringValue(std::string(text.rbegin(), text.rend()));
        }
        void clear(NSObject*) { field->setStringValue(""); }
        Ref<NSTextField> field { textField("stressed", 180) };
    };
    auto const form = Form::page();
    auto const editor = form->keep(make<Editor>());
    form->addRow("Text", { editor->field });
    auto const actions = make<NSPopUpButton>(Rect { 0, 0, 180, 26 }, true);
    actions->addItemsWithTitles({ "Change", "Turn Round", "Clear" });
    actions->itemAtIndex(1)->setTarget(*editor, &Editor::turnRound);
    actions->itemAtIndex(2)->setTarget(*editor, &Editor::clear);
    form->addRow("Menu", { actions, hint("Both are disabled while there is no text.") });
    form->addNote("A menu that enables its items itself asks each item’s target; the answer may also change the title.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeMenuViewPage()
{
    auto const menu = make<NSMenu>("Keys");
    menu->setAutoenablesItems(false);
    for (char const* note : { "C", "D", "E", "", "F", "G", "A", "B", "", "C major", "A minor", "E minor", "G major" }) {
        if (*note)
            menu->addItemWithTitle(note, {}, "");
        else
            menu->addItem(*NSMenuItem::separatorItem());
    }
    menu->itemAtIndex(2)->setEnabled(false);
    auto const whole = make<MenuView>(menu, Ref<NSFont>(), 120.0F);
    whole->setFrameSize(whole->layout().size);
    auto const part = make<MenuView>(menu, NSFont::menuFontOfSize(11), 160.0F);
    part->setFrameSize({ part->layout().size.width, 130 });
    auto const form = Form::page();
    auto const go = [whole, part, form = form.get()](long step) {
        long index = part->highlightedIndex();
        do
            index += step;
        while (index >= 0 && index < part->shownMenu().numberOfItems() && !part->canHighlight(index));
        if (!part->canHighlight(index))
            return;
        whole->highlight(index, MenuView::Reveal::no);
        part->highlight(index, MenuView::Reveal::yes);
        form->setStatus("Item " + std::to_string(index) + ", scrolled to " + valueText(part->scrolled()));
    };
    form->addRow("Open", { still(whole), still(part) });
    form->addRow("Go", { pushButton("Up", [go] { go(-1); }), pushButton("Down", [go] { go(1); }) });
    form->addStatus("What is lower than its menu scrolls to what is lit.");
    go(1);
    form->sizeToRows();
    return form;
}

constexpr char source[] = "menus_pages.cpp";
constexpr Page familyPages[] {
    { "NSMenu", "Menu", controlsSection, source, makeNSMenuPage },
    { "NSMenuItem", "Menu item", controlsSection, source, makeNSMenuItemPage },
    { "MenuView", "View of an open menu", controlsSection, source, makeMenuViewPage },
    { "NSMenuValidation", "Enabling menu items", controlsSection, source, makeNSMenuValidationPage },
};

}

std::span<Page const> menusPages()
{
    return familyPages;
}

}
