#pragma once

#include "pages.h"

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/base/ObjectValue.h>

#include <functional>
#include <vector>

namespace plix {

class NSCell;
class NSControl;
class NSOutlineView;
class NSTableColumn;
class NSTextField;
class NSTextView;
class PLIXOutlineView;
class Selector;
struct NSNotification;

}

namespace gallery {

class SearchField;

/// The pages by sections, below a field that narrows them down. Typing selects the page that fits best; the arrow keys go on from
/// the field to the list, Escape shows all pages again.
class PageList final : public plix::NSView {
public:
    PageList();
    ~PageList() override;
    /// The pages must outlive the list.
    bool init(plix::Rect frame, std::span<Page const> pages);

    /// Called when a person, or a search, selects another page.
    void setSelectFunction(std::function<void(Page const&)> function) { m_select = std::move(function); }
    /// Selects a page without telling. One that the search leaves out ends the search.
    void selectPage(Page const&);
    Page const* selectedPage() const;
    /// The pages as they stand in the list now, without their sections.
    std::vector<Page const*> const& shownPages() const { return m_shown; }
    void searchFor(std::string_view query);
    void beginSearching();

    SearchField& searchField() const { return *m_searchField; }
    plix::PLIXOutlineView& outline() const { return *m_outline; }
    plix::NSTextField& countLabel() const { return *m_countLabel; }
    /// Says that nothing was found; hidden while something is.
    plix::NSTextField& emptyLabel() const { return *m_emptyLabel; }
    /// The row of a page; -1 where it is not seen.
    long rowOfPage(Page const&) const;

    // As the outline's data source and delegate.
    long numberOfChildrenOfItem(plix::NSOutlineView&, plix::NSObject* item);
    plix::Ref<plix::NSObject> child(plix::NSOutlineView&, long index, plix::NSObject* item);
    bool isItemExpandable(plix::NSOutlineView&, plix::NSObject* item);
    plix::ObjectValue objectValueForTableColumn(plix::NSOutlineView&, plix::NSTableColumn&, plix::NSObject* item);
    void willDisplayCell(plix::NSOutlineView&, plix::NSCell&, plix::NSTableColumn&, plix::NSObject* item);
    bool shouldSelectItem(plix::NSOutlineView&, plix::NSObject* item);
    void outlineViewSelectionDidChange(plix::NSNotification const&);
    // As the field's delegate.
    void controlTextDidChange(plix::NSNotification const&);
    bool controlDoCommandBySelector(plix::NSControl&, plix::NSTextView&, plix::Selector);

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect) override;

private:
    class Item;

    void makeSearchField();
    void makeOutline();
    void makeLabels();
    void makeItems(std::span<Page const>);
    void search();
    void showMatches(std::string_view query);
    void showCount();
    Item* itemOfPage(Page const&) const;

    std::span<Page const> m_pages;
    std::vector<plix::Ref<Item>> m_sections;
    std::vector<plix::Ref<Item>> m_shownSections;
    std::vector<Page const*> m_shown;
    std::function<void(Page const&)> m_select;
    plix::Ref<SearchField> m_searchField;
    plix::Ref<plix::PLIXOutlineView> m_outline;
    plix::Ref<plix::NSTextField> m_countLabel;
    plix::Ref<plix::NSTextField> m_emptyLabel;
    /// Selected last; a search may leave it out meanwhile.
    Page const* m_current { nullptr };
    bool m_isQuiet { false };
};

}
