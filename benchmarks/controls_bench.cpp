#include "bench.h"
#include "controls_peer.h"
#include "headless_machine.h"

#include <plix/controls/PLIXTabView.h>
#include <plix/controls/PLIXTabViewItem.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/graphics/NSColor.h>

#include <string>
#include <vector>

namespace plix::bench {

namespace {

constexpr int columns = 10;
constexpr int rows = 20;
constexpr Size cell { 110, 36 };
constexpr float tabChromeHeight = 46;
constexpr Size windowSize { columns * cell.width + 10, rows* cell.height + 10 };

/// All kinds in turn, 25 of each.
std::vector<ControlSample> assortedControls()
{
    std::vector<ControlSample> samples;
    for (int i = 0; i < columns * rows; ++i) {
        // Shifted from row to row, so that columns are mixed too.
        auto const kind = static_cast<ControlKind>((i + i / columns) % 8);
        float const x = 10 + cell.width * static_cast<float>(i % columns);
        float const y = 8 + cell.height * static_cast<float>(i / columns);
        samples.push_back(
            { kind, "Control " + std::to_string(i), { x, y, 100, kind == ControlKind::Box ? 32.F : 24.F }, i % 3 == 0 });
    }
    return samples;
}

Ref<NSView> buttonOf(ControlSample const& sample, NSButtonType type)
{
    auto const button = make<NSButton>(sample.frame);
    button->setButtonType(type);
    if (type == NSMomentaryPushInButton)
        button->setBezelStyle(NSRoundedBezelStyle);
    button->setTitle(sample.text);
    button->setState(sample.isOn && type != NSMomentaryPushInButton ? NSOnState : NSOffState);
    return button;
}

Ref<NSTextField> fieldOf(ControlSample const& sample)
{
    auto const field = make<NSTextField>(sample.frame);
    field->setStringValue(sample.text);
    if (sample.kind == ControlKind::Label) {
        field->setEditable(false);
        field->setBezeled(false);
        field->setDrawsBackground(false);
    }
    return field;
}

Ref<NSView> viewOf(ControlSample const& sample)
{
    switch (sample.kind) {
    case ControlKind::Label:
    case ControlKind::Field:
        return fieldOf(sample);
    case ControlKind::Button:
        return buttonOf(sample, NSMomentaryPushInButton);
    case ControlKind::CheckBox:
        return buttonOf(sample, NSSwitchButton);
    case ControlKind::RadioButton:
        return buttonOf(sample, NSRadioButton);
    case ControlKind::PopUp: {
        auto const button = make<NSPopUpButton>(sample.frame, false);
        button->addItemWithTitle(sample.text);
        return button;
    }
    case ControlKind::Progress: {
        auto const bar = make<NSProgressIndicator>(sample.frame);
        bar->setIndeterminate(false);
        bar->setDoubleValue(60);
        return bar;
    }
    case ControlKind::Box: {
        auto const box = make<NSBox>(sample.frame);
        box->setTitle(sample.text);
        return box;
    }
    }
    return nullptr;
}

std::vector<TabSample> twoTabs()
{
    // In the second one the rows are further apart.
    std::vector<TabSample> tabs;
    for (float const more : { 0.F, 1.F }) {
        TabSample tab { assortedControls(), windowSize.height + tabChromeHeight + more * rows };
        for (int i = 0; i < columns * rows; ++i)
            tab.controls[static_cast<std::size_t>(i)].frame.y += more * static_cast<float>(i / columns);
        tabs.push_back(std::move(tab));
    }
    return tabs;
}

/// A window that fits the pane of its selected tab, without animation.
class Tabs {
public:
    explicit Tabs(std::vector<TabSample> const& samples)
        : window(make<NSWindow>(rectWith({ 0, 0 }, windowSize), NSTitledWindowMask, NSBackingStoreBuffered, false))
        , tabs(make<PLIXTabView>(rectWith({ 0, 0 }, windowSize)))
    {
        NSUserDefaults::standardUserDefaults().registerDefaults({ { "NSWindowResizeTime", 0.0 } });
        window->contentView()->addSubview(*tabs);
        for (auto const& sample : samples) {
            auto const item = make<PLIXTabViewItem>();
            item->setLabel("Controls");
            for (auto control : sample.controls) {
                control.frame.y = sample.windowHeight - control.frame.maxY();
                item->view()->addSubview(*viewOf(control));
            }
            tabs->addTabViewItem(*item);
        }
        window->makeKeyAndOrderFront(nullptr);
        window->displayIfNeeded();
    }
    ~Tabs() { window->close(); }
    Tabs(Tabs const&) = delete;
    Tabs& operator=(Tabs const&) = delete;

    void selectOther()
    {
        tabs->selectTabViewItemAtIndex(1 - tabs->indexOfTabViewItem(*tabs->selectedTabViewItem()));
        window->displayIfNeeded();
    }

    Ref<NSWindow> window;
    Ref<PLIXTabView> tabs;
};

class Controls {
public:
    explicit Controls(std::vector<ControlSample> const& samples)
        : window(make<NSWindow>(rectWith({ 0, 0 }, windowSize), NSTitledWindowMask, NSBackingStoreBuffered, false))
    {
        for (auto sample : samples) {
            sample.frame.y = windowSize.height - sample.frame.y - sample.frame.height;
            auto const view = viewOf(sample);
            if (sample.kind == ControlKind::Label && !label)
                label = static_cast<NSTextField*>(view.get());
            window->contentView()->addSubview(*view);
        }
        window->makeKeyAndOrderFront(nullptr);
        window->displayIfNeeded();
    }
    ~Controls() { window->close(); }
    Controls(Controls const&) = delete;
    Controls& operator=(Controls const&) = delete;

    void drawWindow()
    {
        window->contentView()->setNeedsDisplay(true);
        window->displayIfNeeded();
    }
    void changeLabel()
    {
        m_isOther = !m_isOther;
        label->setStringValue(m_isOther ? "Changed" : "Another");
        window->displayIfNeeded();
    }

    Ref<NSWindow> window;
    NSTextField* label { nullptr };

private:
    bool m_isOther { false };
};

}

PLIX_FIGURE("controls.window")
{
    Machine const machine;
    auto const samples = assortedControls();
    Controls controls(samples);
    auto const ours = [&] { controls.drawWindow(); };
#ifdef PLIX_BENCH_QT
    auto const peer = qtControls(windowSize, samples);
    if (peer.drawnControls != columns * rows) {
        figure.skip("Qt draws " + std::to_string(peer.drawnControls) + " of the controls");
        return;
    }
    figure.wantRatio(2);
    figure.timeAgainst("Qt", { ours }, { peer.drawWindow });
#else
    figure.time({ ours });
#endif
}

PLIX_FIGURE("tabs.switch")
{
    Machine const machine;
    auto const samples = twoTabs();
    Tabs tabs(samples);
    auto const ours = [&] { tabs.selectOther(); };
#ifdef PLIX_BENCH_QT
    auto const peer = qtTabs(windowSize.width, samples);
    if (peer.drawnControls != columns * rows) {
        figure.skip("Qt draws " + std::to_string(peer.drawnControls) + " of the controls");
        return;
    }
    figure.timeAgainst("Qt", { ours }, { peer.selectOther });
#else
    figure.time({ ours });
#endif
}

// Near 1 where the cost is the label's and not the window's.
PLIX_FIGURE("controls.one_label")
{
    Machine const machine;
    auto const samples = assortedControls();
    Controls among(samples);
    Controls alone({ samples.front() });
    figure.setUnit("us");
    figure.timeAgainst("the label alone in a window", { [&] { among.changeLabel(); } }, { [&] { alone.changeLabel(); } });
}

#ifdef PLIX_BENCH_QT
PLIX_FIGURE("controls.one_label_qt")
{
    Machine const machine;
    auto const samples = assortedControls();
    Controls controls(samples);
    auto const peer = qtControls(windowSize, samples);
    figure.setUnit("us");
    figure.timeAgainst("Qt", { [&] { controls.changeLabel(); } }, { peer.changeLabel });
}
#endif

}
