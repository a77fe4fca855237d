#include "PreferencesWindow.h"

#include <plix/controls/PLIXTabView.h>
#include <plix/controls/PLIXTabViewItem.h>
#include <plix/format/string_additions.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderCell.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/system/sounds.h>

#include <algorithm>

namespace browser {

using namespace plix;

namespace {

constexpr Size startSize { 420, 200 };
constexpr float rowGap = 8;
constexpr float rowWidth = 340;
constexpr float rowHeight = 20;
constexpr float left = 20;
constexpr float indent = 18;

bool isOn(NSButton const& button)
{
    return button.state() == NSOnState;
}

void setOn(NSButton& button, bool isOn)
{
    button.setState(isOn ? NSOnState : NSOffState);
}

}

PLIX_DESCRIBE(PreferencesWindow)
{
}

PreferencesWindow::PreferencesWindow() = default;
PreferencesWindow::~PreferencesWindow() = default;

bool PreferencesWindow::init(Preferences preferences, Ref<NSTableView> const& table, Changed changed)
{
    m_preferences = std::move(preferences);
    m_table = table;
    m_changed = std::move(changed);
    m_panel = make<NSPanel>(rectWith({}, startSize), NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, false);
    m_panel->setTitle("Preferences");
    m_panel->setHidesOnDeactivate(false);
    m_tabs = make<PLIXTabView>(m_panel->contentView()->bounds());
    m_panel->contentView()->addSubview(*m_tabs);
    m_stripes = makeSwitch("Shade every second row", &PreferencesWindow::takeSwitches);
    m_hiddenFiles = makeSwitch("Show hidden files", &PreferencesWindow::takeSwitches);
    m_exactSizes = makeSwitch("Show sizes to the byte", &PreferencesWindow::takeSwitches);
    m_speaks = makeSwitch("Speak the names of what is selected", &PreferencesWindow::takeSwitches);
    addTab("General", { m_stripes, m_hiddenFiles, m_exactSizes, m_speaks });
    std::vector<Ref<NSView>> rows;
    // The first column stays.
    for (std::size_t i = 1; i < table->tableColumns().size(); ++i) {
        auto const& title = table->tableColumns()[i]->headerCell()->stringValue();
        m_columns.push_back(makeSwitch(title, &PreferencesWindow::takeColumns));
        rows.push_back(m_columns.back());
    }
    addTab("Columns", rows);
    makeSounds();
    showValues();
    m_tabs->resizeToFitContent();
    m_panel->center();
    return true;
}

Ref<NSButton> PreferencesWindow::makeSwitch(std::string_view title, void (PreferencesWindow::*action)())
{
    auto button = make<NSButton>(Rect { 0, 0, rowWidth, rowHeight });
    button->setButtonType(NSSwitchButton);
    button->setTitle(title);
    button->setActionFunction([weakly = Weak<PreferencesWindow>(*this), action](NSObject*) {
        if (auto const self = weakly.ref())
            (self.get()->*action)();
    });
    return button;
}

void PreferencesWindow::addTab(std::string_view label, std::vector<Ref<NSView>> const& rows)
{
    auto const item = make<PLIXTabViewItem>(label);
    item->setLabel(label);
    float y = 0;
    for (auto const& row : rows) {
        y -= row->frame().height;
        row->setFrameOrigin({ left + row->frame().x, y });
        y -= rowGap;
        item->view()->addSubview(*row);
    }
    m_tabs->addTabViewItem(*item);
}

void PreferencesWindow::makeSounds()
{
    m_playsSound = makeSwitch("Play a sound when files were copied", &PreferencesWindow::takeSwitches);
    m_sounds = make<NSPopUpButton>(Rect { indent, 0, 200, 26 }, false);
    m_sounds->addItemWithTitle("Beep");
    m_soundPaths = PLIXSystemSoundPaths();
    for (auto const& path : m_soundPaths)
        m_sounds->addItemWithTitle(stringByDeletingFileExtension(path.substr(path.rfind('/') + 1)));
    m_sounds->setActionFunction([weakly = Weak<PreferencesWindow>(*this)](NSObject*) {
        if (auto const self = weakly.ref())
            self->takeSound();
    });
    addTab("Sounds", { m_playsSound, m_sounds });
}

void PreferencesWindow::show()
{
    showValues();
    m_panel->makeKeyAndOrderFront(nullptr);
}

void PreferencesWindow::showValues()
{
    setOn(*m_stripes, m_preferences.showsStripes);
    setOn(*m_hiddenFiles, m_preferences.showsHiddenFiles);
    setOn(*m_exactSizes, m_preferences.showsExactSizes);
    setOn(*m_playsSound, m_preferences.playsSound);
    setOn(*m_speaks, m_preferences.speaks);
    for (auto const& button : m_columns) {
        auto const& columns = m_table->tableColumns();
        auto const shown = std::ranges::find_if(
            columns, [&](auto const& column) { return column->headerCell()->stringValue() == button->title(); });
        setOn(*button, shown != columns.end() && !(*shown)->isHidden());
    }
    auto const sound = std::ranges::find(m_soundPaths, m_preferences.sound);
    m_sounds->selectItemAtIndex(sound == m_soundPaths.end() ? 0 : 1 + (sound - m_soundPaths.begin()));
    m_sounds->setEnabled(m_preferences.playsSound);
}

void PreferencesWindow::takeSwitches()
{
    m_preferences.showsStripes = isOn(*m_stripes);
    m_preferences.showsHiddenFiles = isOn(*m_hiddenFiles);
    m_preferences.showsExactSizes = isOn(*m_exactSizes);
    m_preferences.playsSound = isOn(*m_playsSound);
    m_preferences.speaks = isOn(*m_speaks);
    m_sounds->setEnabled(m_preferences.playsSound);
    m_changed(m_preferences);
}

void PreferencesWindow::takeColumns()
{
    for (auto const& button : m_columns) {
        for (auto const& column : std::vector(m_table->tableColumns())) {
            if (column->headerCell()->stringValue() == button->title())
                column->setHidden(!isOn(*button));
        }
    }
}

// The sound is heard at once, as a sample.
void PreferencesWindow::takeSound()
{
    long const index = m_sounds->indexOfSelectedItem();
    m_preferences.sound = index > 0 ? m_soundPaths.at(static_cast<std::size_t>(index - 1)) : "";
    playSound(m_preferences.sound);
    m_changed(m_preferences);
}

void playSound(std::string const& path)
{
    if (path.empty())
        NSBeep();
    else
        TQAlertSoundPlay(path);
}

}
