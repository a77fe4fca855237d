#pragma once

#include "Preferences.h"

#include <plix/platform/base/Class.h>

#include <functional>
#include <string_view>
#include <vector>

namespace plix {

class NSButton;
class NSPanel;
class NSPopUpButton;
class NSTableView;
class NSView;
class PLIXTabView;

}

namespace browser {

/// A panel with a tab for each subject, as high as the tab that is shown wants it.
class PreferencesWindow : public plix::NSObject {
    PLIX_CLASS(PreferencesWindow, plix::NSObject);

public:
    using Changed = std::function<void(Preferences const&)>;

    PreferencesWindow();
    ~PreferencesWindow() override;
    /// The table is that whose columns are shown and hidden; `changed` is told of everything else.
    bool init(Preferences, plix::Ref<plix::NSTableView> const&, Changed);

    plix::NSPanel& panel() const { return *m_panel; }
    plix::PLIXTabView& tabs() const { return *m_tabs; }
    /// In front, with what is set now.
    void show();

    // What is in the tabs.
    plix::NSButton& stripes() const { return *m_stripes; }
    plix::NSButton& hiddenFiles() const { return *m_hiddenFiles; }
    plix::NSButton& exactSizes() const { return *m_exactSizes; }
    /// Of the columns that can be hidden.
    std::vector<plix::Ref<plix::NSButton>> const& columns() const { return m_columns; }
    plix::NSButton& playsSound() const { return *m_playsSound; }
    plix::NSPopUpButton& sounds() const { return *m_sounds; }
    plix::NSButton& speaks() const { return *m_speaks; }

private:
    plix::Ref<plix::NSButton> makeSwitch(std::string_view title, void (PreferencesWindow::*action)());
    void addTab(std::string_view label, std::vector<plix::Ref<plix::NSView>> const& rows);
    void makeSounds();
    void showValues();
    void takeSwitches();
    void takeColumns();
    void takeSound();

    Preferences m_preferences;
    plix::Ref<plix::NSTableView> m_table;
    Changed m_changed;
    plix::Ref<plix::NSPanel> m_panel;
    plix::Ref<plix::PLIXTabView> m_tabs;
    plix::Ref<plix::NSButton> m_stripes;
    plix::Ref<plix::NSButton> m_hiddenFiles;
    plix::Ref<plix::NSButton> m_exactSizes;
    std::vector<plix::Ref<plix::NSButton>> m_columns;
    plix::Ref<plix::NSButton> m_playsSound;
    plix::Ref<plix::NSPopUpButton> m_sounds;
    plix::Ref<plix::NSButton> m_speaks;
    std::vector<std::string> m_soundPaths; ///< of the items behind the first
};

/// The beep for an empty path.
void playSound(std::string const& path);

}
