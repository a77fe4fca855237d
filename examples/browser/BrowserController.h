#pragma once

#include "FolderListing.h"

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Class.h>

namespace plix {

class NSScrollView;
class NSTextField;
class NSTimer;

}

namespace browser {

class ListView;

/// A window that shows one folder after the other. Keeps itself alive as long as its window is open.
class BrowserController : public plix::NSObject {
    PLIX_CLASS(BrowserController, plix::NSObject);

public:
    BrowserController();
    ~BrowserController() override;
    bool init(std::string absolutePath);

    plix::NSWindow& window() const { return *m_window; }
    ListView& list() const { return *m_list; }
    plix::NSScrollView& scrollView() const { return *m_scrollView; }
    FolderListing const& listing() const { return m_listing; }
    /// What the status bar says at its left and right end.
    std::string const& status() const;
    std::string const& inputStatus() const;

    /// Shows another folder with its first entry selected, or that of the name, where it is there.
    void open(std::string absolutePath, std::string nameToSelect = {});
    void openRow(long row);
    void openParent();

private:
    void makeWindow();
    void makeBars(plix::NSView& content);
    void makeList(plix::NSView& content);
    void readOn();
    void showListing();
    void showStatus();
    void showFailure(std::string line);
    void noteUserInput();
    void showInputStatus();

    FolderListing m_listing;
    std::string m_nameToSelect;
    std::string m_failure; ///< of what was tried last in this folder
    long m_inputCount { 0 };
    plix::Ref<plix::NSWindow> m_window;
    plix::Ref<plix::NSScrollView> m_scrollView;
    plix::Ref<ListView> m_list;
    plix::Ref<plix::NSTextField> m_nameLabel;
    plix::Ref<plix::NSTextField> m_pathLabel;
    plix::Ref<plix::NSTextField> m_statusLabel;
    plix::Ref<plix::NSTextField> m_inputLabel;
    plix::Ref<plix::NSTimer> m_readTimer;
};

}
