#pragma once

#include "SampleFolder.h"
#include "memory_samples.h"

#include <plix/platform/base/NSObject.h>
#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/geometry.h>

#include <deque>
#include <functional>
#include <random>
#include <vector>

namespace plix {

class HeadlessHost;
class HeadlessScript;
class NSTableView;
class NSView;
class NSWindow;

}

namespace browser {

class BrowserController;

}

namespace soak {

/// A person who uses the browser without end: rounds of actions drawn by lot, at a steady pace. Each round ends where the first
/// began, with the same folder open and the panels closed, and memory is looked at there.
class BrowserLoop {
public:
    struct Options {
        double minutes { 60 };
        double actionsASecond { 20 };
        /// At the beginning, faster, so that what the library keeps within bounds fills up.
        double warmUpMinutes { 10 };
        double warmUpHaste { 10 };
        int actionsARound { 100 };
        unsigned seed { 1 };
    };
    using Report = std::function<void(MemorySample const&)>;

    /// The application must be there. The report is called with each sample.
    BrowserLoop(plix::HeadlessHost&, Options, Report);
    ~BrowserLoop();
    BrowserLoop(BrowserLoop const&) = delete;
    BrowserLoop& operator=(BrowserLoop const&) = delete;

    /// Until the minutes are over.
    void run();
    std::vector<MemorySample> const& samples() const { return m_samples; }
    /// What the loop is confined to.
    SampleFolder const& folder() const { return m_folder; }
    long actions() const { return m_actions; }

private:
    struct Action;
    using Step = std::function<void()>;

    void tick();
    void scheduleTick();
    void beginRest();
    bool leaveLoops();
    bool isInSample() const;
    void chooseAction();
    void afterThis(Step step) { m_steps.push_back(std::move(step)); }
    int below(int limit);
    double seconds() const;

    plix::HeadlessScript& person();
    plix::NSTableView& table();
    plix::NSTableView& outline();
    void clickRow(plix::NSTableView&, int count, unsigned modifiers = 0);
    plix::Point visibleRowPoint(plix::NSTableView&);
    plix::Point middleOf(plix::NSView&);

    // The actions.
    void scroll();
    void select();
    void walkByKeys();
    void openFolder();
    void openParent();
    void sort();
    void useTree();
    void typeName();
    void toggleInfo();
    void usePreferences();
    void copyFiles();
    void useMenu();
    void chooseStyle();
    void askForDates();
    void askToDelete();
    void resizeWindow();
    void moveColumn();
    void hover();
    void changeLook();

    plix::HeadlessHost& m_host;
    Options m_options;
    Report m_report;
    SampleFolder m_folder;
    plix::Ref<browser::BrowserController> m_controller;
    std::deque<Step> m_steps;
    std::mt19937 m_lots;
    std::vector<MemorySample> m_samples;
    double m_begun { 0 };
    long m_actions { 0 };
    int m_actionsLeft { 0 };
};

}
