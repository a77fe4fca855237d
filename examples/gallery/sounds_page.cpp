#include "sounds_page.h"
#include "Desk.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/host/Audio.h>
#include <plix/platform/host/Host.h>
#include <plix/system/media_exporters.h>
#include <plix/system/sounds.h>
#include <plix/tables/PLIXTableView.h>

#include <array>
#include <cmath>

namespace gallery {

using namespace plix;

namespace {

constexpr Size pageSize { 620, 470 };
constexpr float margin = 20;
constexpr float captionHeight = 16;
constexpr float listHeight = 190;
constexpr float left = margin;
constexpr float listWidth = 290;
constexpr float right = left + listWidth + 24;
constexpr float sideWidth = pageSize.width - right - margin;
constexpr std::array volumes { 0.25F, 0.5F, 0.75F, 1.0F };

std::string percent(float volume)
{
    return std::to_string(std::lround(volume * 100)) + " %";
}

std::string fourCharacters(ObjectValue const& code)
{
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8)
        text += static_cast<char>(static_cast<unsigned>(code.integerValue()) >> shift & 0xFF);
    return text;
}

class SoundRows final : public NSObject {
public:
    long numberOfRowsInTableView(NSTableView&) { return std::ssize(paths); }
    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn&, long row)
    {
        return stringByDeletingPathExtension(lastPathComponent(paths[static_cast<std::size_t>(row)]));
    }
    std::vector<std::string> paths { PLIXSystemSoundPaths() };
};

class ComponentRows final : public NSObject {
public:
    long numberOfRowsInTableView(NSTableView&) { return std::ssize(components); }
    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
    {
        auto const key = column.identifier().description();
        auto const& value = components[static_cast<std::size_t>(row)].at(key);
        return key == "name" ? value : fourCharacters(value);
    }
    std::vector<ObjectValue::Dictionary> components { availableComponents() };
};

class SoundsDesk final : public Desk {
public:
    bool init()
    {
        if (!Desk::init(rectWith({}, pageSize)))
            return false;
        addSounds();
        addVolumes();
        addComponents();
        if (auto* const audio = host().audio())
            m_observer = audio->observeOutputVolume([this] { showVolume(); });
        showVolume();
        return true;
    }

private:
    void addCaption(std::string_view text, Point corner)
    {
        auto const label = NSTextField::labelWithString(text);
        label->setFont(NSFont::boldSystemFontOfSize(11));
        label->setFrame({ corner.x, corner.y, listWidth, captionHeight });
        addSubview(*label);
    }
    Ref<NSTextField> addText(Rect frame)
    {
        auto const text = NSTextField::labelWithString("");
        text->setFont(NSFont::systemFontOfSize(11));
        text->setFrame(frame);
        addSubview(*text);
        return text;
    }
    Ref<NSButton> addButton(std::string_view title, Rect frame, void (SoundsDesk::*act)())
    {
        auto const button = make<NSButton>(frame);
        button->setTitle(title);
        button->setActionFunction([this, act](NSObject*) { (this->*act)(); });
        addSubview(*button);
        return button;
    }
    static void addColumn(NSTableView& table, char const* identifier, char const* title, float width)
    {
        auto const column = make<NSTableColumn>(identifier);
        column->headerCell()->setStringValue(title);
        column->setWidth(width);
        column->setEditable(false);
        table.addTableColumn(*column);
    }
    void addTable(NSTableView& table, Rect frame)
    {
        auto const scrollView = make<NSScrollView>(frame);
        scrollView->setBorderType(NSBezelBorder);
        scrollView->setHasVerticalScroller(true);
        scrollView->setAutohidesScrollers(true);
        scrollView->setDocumentView(&table);
        addSubview(*scrollView);
    }
    void addSounds()
    {
        addCaption("Alert sounds", { left, margin });
        m_sounds = make<PLIXTableView>(Rect { 0, 0, listWidth, listHeight });
        addColumn(*m_sounds, "name", "Name", listWidth - 24);
        m_sounds->setEmptyString("There are no alert sounds");
        m_sounds->setDataSource(m_soundRows);
        m_sounds->setDoubleActionFunction([this](NSTableView&) { play(); });
        m_sounds->reloadData();
        if (!m_soundRows->paths.empty())
            m_sounds->selectRowIndexes(NSIndexSet::indexSetWithIndex(0), false);
        addTable(*m_sounds, { left, margin + captionHeight + 4, listWidth, listHeight });
    }
    void addVolumes()
    {
        float y = margin;
        addCaption("Play it at", { right, y });
        y += captionHeight + 4;
        m_volume = make<NSSegmentedControl>(Rect { right, y, sideWidth, 24 });
        m_volume->setSegmentCount(std::ssize(volumes));
        for (long index = 0; index < std::ssize(volumes); ++index)
            m_volume->setLabel(percent(volumes[static_cast<std::size_t>(index)]), index);
        m_volume->setSelectedSegment(1);
        addSubview(*m_volume);
        y += 34;
        addButton("Play", { right, y, 80, 28 }, &SoundsDesk::play)->setKeyEquivalent("\r");
        addButton("Alert", { right + 86, y, 80, 28 }, &SoundsDesk::alert);
        addButton("Beep", { right + 172, y, 80, 28 }, &SoundsDesk::beep);
        y += 34;
        m_status = addText({ right, y, sideWidth, captionHeight });
        y += captionHeight + 14;
        addCaption("Device volume", { right, y });
        y += captionHeight + 6;
        for (auto& ear : m_ears) {
            ear.bar = make<NSProgressIndicator>(Rect { right + 42, y, sideWidth - 92, 12 });
            ear.bar->setIndeterminate(false);
            ear.bar->setMaxValue(1);
            addSubview(*ear.bar);
            addText({ right, y - 2, 40, captionHeight })->setStringValue(&ear == m_ears.data() ? "Left" : "Right");
            ear.text = addText({ right + sideWidth - 42, y - 2, 42, captionHeight });
            y += 20;
        }
        m_alertVolume = addText({ right, y + 2, sideWidth, captionHeight });
    }
    void addComponents()
    {
        float const y = margin + captionHeight + 4 + listHeight + 20;
        addCaption("Kinds of media that can be written", { left, y });
        auto const table = make<PLIXTableView>(Rect { 0, 0, pageSize.width - 2 * margin, listHeight });
        addColumn(*table, "name", "Name", 300);
        addColumn(*table, "type", "Type", 80);
        addColumn(*table, "subtype", "Subtype", 80);
        addColumn(*table, "manufacturer", "Manufacturer", 90);
        table->setEmptyString("There are no export components");
        table->setDataSource(m_componentRows);
        table->reloadData();
        addTable(
            *table, { left, y + captionHeight + 4, pageSize.width - 2 * margin, pageSize.height - y - captionHeight - 4 - margin });
    }

    std::string const* selectedPath() const
    {
        auto const row = m_sounds->selectedRow();
        return row < 0 ? nullptr : &m_soundRows->paths[static_cast<std::size_t>(row)];
    }
    void play()
    {
        auto const* const path = selectedPath();
        auto const volume = volumes[static_cast<std::size_t>(m_volume->selectedSegment())];
        bool const plays = path && TQQTSoundPlay(*path, volume);
        m_status->setStringValue(plays ? "Plays at " + percent(volume) : "There is nothing to play");
    }
    void alert()
    {
        auto const* const path = selectedPath();
        m_status->setStringValue(path && TQAlertSoundPlay(*path) ? "Plays as an alert" : "There is nothing to play");
    }
    void beep()
    {
        NSBeep();
        m_status->setStringValue("Beeps");
    }
    void showVolume()
    {
        auto* const audio = host().audio();
        auto const volume = audio ? audio->outputVolume() : std::nullopt;
        auto const shown = volume.value_or(StereoVolume { 1, 1 });
        m_ears[0].bar->setDoubleValue(static_cast<double>(shown.left));
        m_ears[1].bar->setDoubleValue(static_cast<double>(shown.right));
        m_ears[0].text->setStringValue(volume ? percent(shown.left) : "?");
        m_ears[1].text->setStringValue(volume ? percent(shown.right) : "?");
        m_alertVolume->setStringValue("System " + percent(TQSystemVolume()) + ", alerts " + percent(TQAlertVolume()));
    }

    struct Ear {
        Ref<NSProgressIndicator> bar;
        Ref<NSTextField> text;
    };

    Ref<SoundRows> m_soundRows { make<SoundRows>() };
    Ref<ComponentRows> m_componentRows { make<ComponentRows>() };
    Ref<PLIXTableView> m_sounds;
    Ref<NSSegmentedControl> m_volume;
    Ref<NSTextField> m_status;
    std::array<Ear, 2> m_ears;
    Ref<NSTextField> m_alertVolume;
    std::shared_ptr<void> m_observer;
};

}

Ref<NSView> makeSoundsPage()
{
    return make<SoundsDesk>();
}

}
