#pragma once

#include "GallerySettings.h"
#include "pages.h"
#include "pane_layout.h"

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/NSObject.h>

namespace plix {

class NSMenu;
class NSSplitView;
class TQSplitView;
struct NSNotification;

}

namespace gallery {

class PageHeader;
class PageList;
class PageStage;
class SourcePane;
class SwitchBar;

/// The window: the list of pages, the chosen page with what is said about it, its source, and the switches. Settings of the whole
/// process, which the switches change, are as before when it goes.
class GalleryController final : public plix::NSObject {
public:
    GalleryController();
    ~GalleryController() override;
    bool init();

    plix::NSWindow& window() const { return *m_window; }
    PageList& list() const { return *m_list; }
    PageStage& stage() const { return *m_stage; }
    PageHeader& header() const { return *m_header; }
    SourcePane& source() const { return *m_source; }
    SwitchBar& switches() const { return *m_switches; }
    plix::TQSplitView& panes() const { return *m_panes; }
    plix::TQSplitView& pageAndSource() const { return *m_pageAndSource; }

    Page const& page() const { return *m_page; }
    void showPage(Page const&);
    /// The page so many places further in the list as it is searched; stops at its ends.
    void step(int pages);
    void setSettings(GallerySettings const&);
    GallerySettings const& settings() const { return m_settings; }

    /// Window, panes, page and switches as the user left them, and kept from now on.
    void remember();
    /// The keys that the window answers to.
    plix::Ref<plix::NSMenu> makeMenu();

    // As the split views' delegate.
    float constrainMinCoordinate(plix::NSSplitView&, float proposed, long divider);
    float constrainMaxCoordinate(plix::NSSplitView&, float proposed, long divider);
    void resizeSubviewsWithOldSize(plix::NSSplitView&, plix::Size oldSize);
    void splitViewDidResizeSubviews(plix::NSNotification const&);

private:
    class Content;

    void makeWindow();
    void makePanes();
    void layOut();
    void layOutPanes();
    void layOutPageAndSource();
    void showHeader();
    void remakePage();
    void applyProcessSettings();
    void applyPageSettings();
    void savePanes() const;

    GallerySettings m_settings;
    GallerySettings m_before; ///< what the process was set to
    PaneSizes m_sizes;
    Page const* m_page { nullptr };
    plix::Ref<plix::NSWindow> m_window;
    plix::Ref<PageList> m_list;
    plix::Ref<PageHeader> m_header;
    plix::Ref<plix::NSScrollView> m_scrollView;
    plix::Ref<PageStage> m_stage;
    plix::Ref<SourcePane> m_source;
    plix::Ref<SwitchBar> m_switches;
    plix::Ref<plix::TQSplitView> m_panes;
    plix::Ref<plix::TQSplitView> m_pageAndSource;
    plix::Ref<plix::NSView> m_pagePane;
    bool m_remembers { false };
    bool m_isLayingOut { false };
};

}
