#pragma once

#include "DateFilter.h"
#include "FolderListing.h"
#include "Preferences.h"

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Class.h>

namespace plix {

class NSButton;
class NSPopUpButton;
class NSTextField;
class NSTimer;
class PLIXTableView;
class TQSplitView;

}

namespace browser {

class BarView;
class FilesTable;
class FolderTree;
class InfoPanel;
class JobController;
class JobReport;
class PreferencesWindow;

/// A window that shows one folder after the other: a tree of folders beside a table of what is in the chosen one. Keeps itself
/// alive as long as its window is open.
class BrowserController : public plix::NSObject {
    PLIX_CLASS(BrowserController, plix::NSObject);

public:
    BrowserController();
    ~BrowserController() override;
    bool init(std::string absolutePath);

    plix::NSWindow& window() const { return *m_window; }
    FilesTable& files() const { return *m_files; }
    FolderTree& tree() const { return *m_tree; }
    plix::NSPopUpButton& stylePopUp() const { return *m_stylePopUp; }
    /// Asks for the dates between which files were modified that are to be shown.
    plix::NSButton& datesButton() const { return *m_datesButton; }
    /// Below the top bar while a filter is on: what it lets through, and a button that ends it.
    plix::NSView& filterBar() const;
    plix::NSButton& showAllButton() const { return *m_showAllButton; }
    std::optional<DateFilter> const& filter() const { return m_filter; }
    void setFilter(std::optional<DateFilter>);
    FolderListing const& listing() const { return m_listing; }
    /// Null until it was first shown.
    InfoPanel* info() const { return m_info.get(); }
    Preferences const& preferences() const { return m_preferences; }
    void setPreferences(Preferences);
    /// Null until it was first shown.
    PreferencesWindow* preferencesWindow() const { return m_preferencesWindow.get(); }
    void showPreferences();
    /// What is being copied or counted, the latest last.
    std::vector<plix::Ref<JobController>> const& jobs() const { return m_jobs; }
    /// What the status bar says at its left and right end.
    std::string const& status() const;
    std::string const& inputStatus() const;

    /// Places the window, widens the columns and sets all else as the user left it, and keeps what is changed from now on.
    void rememberLayout();

    /// Shows another folder with its first entry selected, or that of the name, where it is there.
    void open(std::string absolutePath, std::string nameToSelect = {});
    void openEntry(FolderEntry const&);
    void openParent();

private:
    void makeWindow();
    void makeBars(plix::NSView& content);
    void makeFilterBar(plix::NSView& content);
    void makePanes(plix::NSView& content);
    void layOutPanes();
    void connect();
    void readOn();
    void showListing();
    void showStatus();
    void showFailure(std::string line);
    void chooseStyle();
    void chooseDates();
    std::string messageForListing() const;
    void askToDelete(std::vector<std::string> const& names);
    void move(std::vector<std::string> const& paths, std::string const& folder);
    void copy(std::vector<std::string> const& paths);
    void showCopies(std::string const& folder, JobReport const&);
    void count(std::vector<std::string> const& names);
    void showTotal(std::string const& folder, std::string const& what, JobReport const&);
    void forgetEndedJobs();
    void closeOthers();
    void showInfo();
    void updateInfo();
    void noteSelection();
    void speak(std::string const&);
    void noteUserInput();
    void showInputStatus();

    FolderListing m_listing;
    std::string m_nameToSelect;
    std::string m_failure; ///< of what was tried last in this folder
    std::string m_notice; ///< what was found out about what is selected
    long m_inputCount { 0 };
    plix::Ref<plix::NSWindow> m_window;
    plix::Ref<FilesTable> m_files;
    plix::Ref<FolderTree> m_tree;
    plix::Ref<plix::TQSplitView> m_panes;
    plix::Ref<plix::NSPopUpButton> m_stylePopUp;
    std::optional<DateFilter> m_filter;
    plix::Ref<plix::NSButton> m_datesButton;
    plix::Ref<plix::NSButton> m_showAllButton;
    plix::Ref<BarView> m_filterBar;
    plix::Ref<plix::NSTextField> m_filterLabel;
    plix::Ref<plix::NSTextField> m_nameLabel;
    plix::Ref<plix::NSTextField> m_pathLabel;
    plix::Ref<plix::NSTextField> m_statusLabel;
    plix::Ref<plix::NSTextField> m_inputLabel;
    plix::Ref<plix::NSTimer> m_readTimer;
    std::vector<plix::Ref<JobController>> m_jobs;
    plix::Ref<InfoPanel> m_info;
    Preferences m_preferences;
    plix::Ref<PreferencesWindow> m_preferencesWindow;
    bool m_savesPreferences { false };
};

}
