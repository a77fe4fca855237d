#pragma once

#include "FileJob.h"
#include "folder_entry.h"

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/geometry.h>

#include <memory>
#include <string>

namespace plix {

class NSPanel;
class NSTextField;
class NSTimer;

}

namespace browser {

class CSVTable;
class FactsView;
class IconView;

/// Where a panel's upper left corner goes, beside a window at the side that has room, level with it, and on the screen.
plix::Point topLeftBeside(plix::Rect window, plix::Size panel, plix::Rect screen);

/// A panel that says what is known of a file: sizes, how long a sound lasts, what video it is, the first lines of a table. What is
/// in a folder is counted while the panel shows it.
class InfoPanel : public plix::NSObject {
    PLIX_CLASS(InfoPanel, plix::NSObject);

public:
    InfoPanel();
    ~InfoPanel() override;
    bool init();

    plix::NSPanel& panel() const { return *m_panel; }
    FactsView& facts() const { return *m_facts; }
    CSVTable& preview() const { return *m_preview; }
    bool showsPreview() const;
    bool isCounting() const { return m_counting != nullptr; }

    /// Of the entry of a folder; null for none.
    void show(FolderEntry const*, std::string const& folder);

private:
    void addFacts(FolderEntry const&, std::string const& path);
    void count(std::string const& path);
    void showCount();
    void stopCounting();
    void fit();

    plix::Ref<plix::NSPanel> m_panel;
    plix::Ref<IconView> m_icon;
    plix::Ref<plix::NSTextField> m_name;
    plix::Ref<FactsView> m_facts;
    plix::Ref<CSVTable> m_preview;
    std::unique_ptr<FileJob> m_counting;
    plix::Ref<plix::NSTimer> m_countTimer;
};

}
